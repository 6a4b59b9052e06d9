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

/// A message in one line without its full stop. A server's goes on with advice in lines that begin
/// with a tab.
std::string InOneLine(std::string text) {
    if (const auto advice = text.find("\n\t"); advice != std::string::npos) text.resize(advice);
    text.erase(text.find_last_not_of(". \r\n") + 1);
    for (std::size_t at = 0; (at = text.find_first_of("\r\n\t", at)) != std::string::npos;) {
        const bool endsSentence = at > 0 && text[at - 1] == '.';
        text.replace(endsSentence ? at - 1 : at,
                     text.find_first_not_of(" \r\n\t", at) - at + (endsSentence ? 1 : 0),
                     endsSentence ? ": " : " ");
    }
    return text;
}

struct Attempt {
    OpenLayer opened;     ///< Without a layer; its dataset is null if it failed.
    std::string failure;  ///< One sentence.
};

GDALDatasetUniquePtr OpenWith(const std::string& source, bool listsAllTables) {
    // "@": for the formats that know the option. Names stand in the first line.
    const char* const options[] = {"@HEADERS=YES",
                                   listsAllTables ? "@LIST_ALL_TABLES=YES" : nullptr, nullptr};
    return GDALDatasetUniquePtr(GDALDataset::Open(source.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY,
                                                  nullptr, options, nullptr));
}

Attempt TryToOpen(const std::string& source) {
    PrepareGdal();
    Attempt attempt{{}, source + " is no table in a format that is known."};
    auto& opened = attempt.opened;
    opened.watch = ServerWatch::For(source);
    const GdalMessages messages(opened.watch);
    opened.dataset = OpenWith(source, false);
    VSIStatBufL ignored;
    if (source.starts_with("/vsi") && VSIStatL(source.c_str(), &ignored) != 0)
        attempt.failure = source + " is not there.";
    // Databases with a list of their maps leave all other tables out of it.
    if (opened.dataset && opened.dataset->GetLayerCount() == 0)
        opened.dataset = OpenWith(source, true);
    if (!messages.Error().empty())
        attempt.failure = source + " cannot be read: " + messages.Error() + '.';
    return attempt;
}

OpenLayer Open(const std::string& source) {
    auto attempt = TryToOpen(source);
    if (!attempt.opened.dataset) Fail(attempt.failure);
    return std::move(attempt.opened);
}

/// Without those that belong to the format.
std::vector<std::string> NamesOf(GDALDataset& dataset) {
    std::vector<std::string> names;
    for (int i = 0; i < dataset.GetLayerCount(); ++i)
        if (!dataset.IsLayerPrivate(i)) names.emplace_back(dataset.GetLayer(i)->GetName());
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

std::string FieldsOf(const OGRFeatureDefn& layer) {
    std::vector<std::string> names;
    for (int i = 0; i < layer.GetFieldCount(); ++i)
        names.emplace_back(layer.GetFieldDefn(i)->GetNameRef());
    return Listed(names);
}

OGRLayer* LayerOf(GDALDataset& dataset, const std::string& source, const std::string& name) {
    if (!name.empty())
        if (auto* const layer = dataset.GetLayerByName(name.c_str())) return layer;
    const auto names = NamesOf(dataset);
    if (!name.empty())
        Fail(source + " has no layer \"" + name + '"' +
             (names.empty() ? "." : "; its layers are " + Listed(names) + '.'));
    if (names.empty()) Fail(source + " has no layer.");
    if (names.size() > 1)
        Fail(source + " has " + std::to_string(names.size()) + " layers (" + Listed(names) +
             "); name one of them, as in \"" + source + '/' + names.front() + "\".");
    return dataset.GetLayerByName(names.front().c_str());
}

void FailIfSilent(const ServerCall& call, const std::string& source) {
    if (const auto fault = call.Fault(); !fault.empty())
        Fail(source + " cannot be read: " + fault + '.');
}

OpenLayer Chosen(OpenLayer opened, const std::string& source, const std::string& name) {
    const ServerCall call(opened.watch);
    opened.layer = LayerOf(*opened.dataset, source, name);
    opened.layer->GetLayerDefn();  // Asks a server for the fields.
    FailIfSilent(call, source);
    return opened;
}

enum class LastSlash { InSource, BeforeLayer, Either };

/// What the last slash of a connection is: in "PG:host=/tmp/socket dbname=atlas/streets" it stands
/// before a layer, in "PG:dbname=atlas host=/tmp/socket" it may.
LastSlash KindOfSlash(const std::string& connection, std::size_t slash) {
    const auto equals = connection.rfind('=');
    if (equals == std::string::npos) return LastSlash::Either;
    if (equals > slash) return LastSlash::InSource;
    const bool isPath =
        connection.find_first_not_of('\'', equals + 1) == connection.find('/', equals);
    return isPath ? LastSlash::Either : LastSlash::BeforeLayer;
}

OpenLayer OpenAnyLayer(const std::string& source, const std::string& layer) {
    const auto slash = source.rfind('/');
    VSIStatBufL ignored;
    if (!layer.empty() || slash == std::string::npos || VSIStatL(source.c_str(), &ignored) == 0)
        return Chosen(Open(source), source, layer);
    const LastSlash kind = KindOfSlash(source, slash);
    if (kind == LastSlash::InSource) return Chosen(Open(source), source, layer);
    const std::string shorter = source.substr(0, slash);
    const std::string last = source.substr(slash + 1);
    if (kind == LastSlash::BeforeLayer) return Chosen(Open(shorter), shorter, last);
    auto whole = TryToOpen(source);
    if (whole.opened.dataset) return Chosen(std::move(whole.opened), source, layer);
    auto part = TryToOpen(shorter);
    if (!part.opened.dataset) Fail(whole.failure);
    return Chosen(std::move(part.opened), shorter, last);
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

GdalMessages::GdalMessages(std::shared_ptr<ServerWatch> watch) : call_(std::move(watch)) {
    CPLErrorReset();
    CPLPushErrorHandlerEx(Report, this);
}

GdalMessages::~GdalMessages() {
    CPLPopErrorHandler();
}

std::string GdalMessages::Error() const {
    const std::string fault = call_.Fault();
    return fault.empty() ? error_ : fault;
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
    if (const auto error = Error(); !error.empty())
        Fail(source + " cannot be read: " + error + '.');
}

OpenLayer& OpenLayer::operator=(OpenLayer&& other) noexcept {
    Close();
    watch = std::move(other.watch);
    dataset = std::move(other.dataset);
    layer = std::exchange(other.layer, nullptr);
    return *this;
}

void OpenLayer::Close() {
    if (!dataset) return;
    const GdalMessages messages(watch);
    dataset.reset();
}

std::vector<std::string> LayerNames(const std::string& source) {
    const auto opened = Open(source);
    const ServerCall call(opened.watch);
    return NamesOf(*opened.dataset);
}

bool IsPlainTable(const std::string& source) {
    const auto opened = Open(source);
    const auto names = NamesOf(*opened.dataset);
    return names.size() == 1 &&
           opened.dataset->GetLayerByName(names.front().c_str())->GetGeomType() == wkbNone;
}

OpenLayer OpenLayerOf(const std::string& source, const std::string& layer,
                      const std::string& where) {
    auto opened = OpenAnyLayer(source, layer);
    if (where.empty()) return opened;
    // A database judges the condition when it is first read.
    const GdalMessages messages(opened.watch);
    const bool isTaken = opened.layer->SetAttributeFilter(where.c_str()) == OGRERR_NONE;
    const OGRFeatureUniquePtr first(isTaken ? opened.layer->GetNextFeature() : nullptr);
    FailIfSilent(ServerCall(opened.watch), source);
    if (!isTaken || !messages.Error().empty())
        Fail("The condition \"" + where + "\" does not suit " + source + "; its fields are " +
             FieldsOf(*opened.layer->GetLayerDefn()) + '.');
    opened.layer->ResetReading();
    return opened;
}

bool IsUntyped(const OpenLayer& opened) {
    const auto& layer = *opened.layer->GetLayerDefn();
    for (int i = 0; i < layer.GetFieldCount(); ++i)
        if (layer.GetFieldDefn(i)->GetType() != OFTString) return false;
    return std::string(opened.dataset->GetDriverName()) == "CSV";
}

}  // namespace gis
