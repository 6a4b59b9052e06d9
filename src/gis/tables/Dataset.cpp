#include "gis/tables/Dataset.h"

#include <algorithm>
#include <cpl_conv.h>
#include <cpl_string.h>
#include <cstdlib>
#include <utility>

#include "host/Failure.h"

namespace gis {
namespace {

[[noreturn]] void Fail(const std::string& sentence) {
    throw host::Failure(host::kFailureUnspecified, "gis::Dataset", sentence);
}

/// Joins the lines of a message, and leaves its full stop out.
std::string InOneLine(std::string text) {
    text.erase(text.find_last_not_of(". \r\n") + 1);
    for (std::size_t at = 0; (at = text.find_first_of("\r\n\t", at)) != std::string::npos;)
        text.replace(at, text.find_first_not_of(" \r\n\t", at) - at, " ");
    return text;
}

/// Null if no format knows the source; throws if one does and cannot open it.
GDALDatasetUniquePtr TryToOpen(const std::string& source) {
    PrepareGdal();
    // "@": for the formats that know the option. Names stand in the first line.
    const char* const options[] = {"@HEADERS=YES", nullptr};
    const GdalMessages messages;
    GDALDatasetUniquePtr dataset(GDALDataset::Open(
        source.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, options, nullptr));
    if (!dataset) messages.ThrowIfFailed(source);
    return dataset;
}

GDALDatasetUniquePtr Open(const std::string& source) {
    auto dataset = TryToOpen(source);
    if (!dataset) Fail(source + " is no table in a format that is known.");
    return dataset;
}

std::vector<std::string> NamesOf(GDALDataset& dataset) {
    std::vector<std::string> names;
    for (auto* const layer : dataset.GetLayers()) names.emplace_back(layer->GetName());
    return names;
}

/// The first few names in quotes.
std::string Listed(const std::vector<std::string>& names) {
    constexpr std::size_t kShown = 10;
    std::string list;
    for (std::size_t i = 0; i < std::min(names.size(), kShown); ++i)
        list += (i == 0 ? "\"" : ", \"") + names[i] + '"';
    return names.size() > kShown ? list + ", ..." : list;
}

OGRLayer* LayerOf(GDALDataset& dataset, const std::string& source, const std::string& name) {
    if (!name.empty()) {
        if (auto* const layer = dataset.GetLayerByName(name.c_str())) return layer;
        const auto names = NamesOf(dataset);
        Fail(source + " has no layer \"" + name + '"' +
             (names.empty() ? "." : "; its layers are " + Listed(names) + '.'));
    }
    if (dataset.GetLayerCount() == 0) Fail(source + " has no layer.");
    if (dataset.GetLayerCount() > 1)
        Fail(source + " has " + std::to_string(dataset.GetLayerCount()) + " layers (" +
             Listed(NamesOf(dataset)) + "); name one of them, as in \"" + source + '/' +
             dataset.GetLayer(0)->GetName() + "\".");
    return dataset.GetLayer(0);
}

OpenLayer Chosen(GDALDatasetUniquePtr dataset, const std::string& source, const std::string& name) {
    auto* const layer = LayerOf(*dataset, source, name);
    return {std::move(dataset), layer};
}

OpenLayer OpenAnyLayer(const std::string& source, const std::string& layer) {
    const auto slash = source.rfind('/');
    VSIStatBufL ignored;
    if (!layer.empty() || slash == std::string::npos || VSIStatL(source.c_str(), &ignored) == 0)
        return Chosen(Open(source), source, layer);
    // A connection may contain slashes of its own, such as the folder of a socket.
    try {
        if (auto dataset = TryToOpen(source)) return Chosen(std::move(dataset), source, layer);
    } catch (const host::Failure&) {
        // The failure of the shorter name is told.
    }
    const std::string shorter = source.substr(0, slash);
    return Chosen(Open(shorter), shorter, source.substr(slash + 1));
}

}  // namespace

void PrepareGdal() {
    static const bool prepared = [] {
        GDALAllRegister();
        // The first row of a sheet has the names, also where all columns are texts.
        CPLSetConfigOption("OGR_XLSX_HEADERS", "FORCE");
        CPLSetConfigOption("OGR_ODS_HEADERS", "FORCE");
        constexpr int kKeep = 0;
        ::setenv("PGCONNECT_TIMEOUT", "10", kKeep);  // Seconds.
        return true;
    }();
    static_cast<void>(prepared);
}

GdalMessages::GdalMessages() {
    CPLErrorReset();
    CPLPushErrorHandlerEx(Report, this);
}

GdalMessages::~GdalMessages() {
    CPLPopErrorHandler();
}

void GdalMessages::Report(CPLErr kind, CPLErrorNum, const char* text) {
    auto& messages = *static_cast<GdalMessages*>(CPLGetErrorHandlerUserData());
    if (kind == CE_Warning)
        messages.warnings_.push_back(InOneLine(text) + '.');
    else if (kind >= CE_Failure && messages.error_.empty())
        messages.error_ = InOneLine(text);
}

std::vector<std::string> GdalMessages::TakeWarnings() {
    return std::exchange(warnings_, {});
}

void GdalMessages::ThrowIfFailed(const std::string& source) const {
    if (!error_.empty()) Fail(source + " cannot be read: " + error_ + '.');
}

std::vector<std::string> LayerNames(const std::string& source) {
    return NamesOf(*Open(source));
}

OpenLayer OpenLayerOf(const std::string& source, const std::string& layer,
                      const std::string& where) {
    auto opened = OpenAnyLayer(source, layer);
    const GdalMessages messages;
    if (!where.empty() && opened.layer->SetAttributeFilter(where.c_str()) != OGRERR_NONE)
        Fail("The condition \"" + where + "\" does not suit " + source + ": " + messages.Error() +
             '.');
    return opened;
}

bool IsUntyped(const OpenLayer& opened) {
    return std::string(opened.dataset->GetDriverName()) == "CSV";
}

}  // namespace gis
