#include "gis/tables/GdalWriter.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <filesystem>
#include <utility>

#include "characters/FoldCase.h"
#include "gis/tables/DbfBytes.h"
#include "gis/tables/Values.h"
#include "host/Failure.h"

namespace gis {
namespace {

struct Format {
    const char* ending;
    const char* driver;
    const char* options;  ///< Of the layer, divided by ";".
};

/// The formats keep a date of change. While this exists it is always the same on this thread, so
/// that the same rows give the same bytes.
class SameDate {
    CPLConfigOptionSetter date_{"OGR_CURRENT_DATE", "2000-01-01T00:00:00.000Z", false};
};

constexpr std::array kFormats = {
    Format{".dbf", "ESRI Shapefile", "ENCODING=UTF-8;DBF_DATE_LAST_UPDATE=2000-01-01"},
    Format{".gpkg", "GPKG", ""}};

/// Digits of whole numbers of 64 bits, all of which have so many.
constexpr std::int32_t kWholeDigits = 18;

OGRFieldType TypeOf(const SourceField& field) {
    switch (field.kind) {
        case FieldKind::Number:
            return field.decimals == 0 && field.length <= kWholeDigits ? OFTInteger64 : OFTReal;
        case FieldKind::Date:
            return OFTDate;
        case FieldKind::Logical:
            return OFTInteger;
        default:
            return OFTString;
    }
}

void SetValue(OGRFeature& feature, int index, const host::Variant& value) {
    const bool isNull = std::holds_alternative<host::Null>(value);
    if (!isNull && feature.GetFieldDefnRef(index)->GetType() == OFTString)
        feature.SetField(index, WholeText(value).c_str());
    else if (const auto* const text = std::get_if<std::string>(&value))
        feature.SetField(index, text->c_str());
    else if (const auto* const number = std::get_if<std::int32_t>(&value))
        feature.SetField(index, *number);
    else if (const auto* const real = std::get_if<double>(&value))
        feature.SetField(index, *real);
    else if (const auto* const flag = std::get_if<bool>(&value))
        feature.SetField(index, *flag ? 1 : 0);
    else
        feature.SetFieldNull(index);
}

}  // namespace

GdalWriter::Folder::Folder() {
    static std::atomic<int> count = 0;
    path = "/vsimem/gazetteer-" + std::to_string(++count);
    VSIMkdir(path.c_str(), 0700);
}

GdalWriter::Folder::~Folder() {
    VSIRmdirRecursive(path.c_str());
}

GdalWriter::GdalWriter(std::string path, std::vector<SourceField> fields)
    : path_(std::move(path)), fields_(std::move(fields)) {
    const auto name = std::filesystem::path(path_);
    const std::string ending = characters::FoldCase(name.extension());
    const auto* const format = std::ranges::find(
        kFormats, ending, [](const Format& known) { return std::string(known.ending); });
    if (format == kFormats.end())
        throw host::Failure(
            host::kFailureUnspecified, "GdalWriter",
            "The table \"" + path_ + "\" cannot be written: its name ends in none of .dbf, .gpkg.");
    PrepareGdal();
    const SameDate date;
    const GdalMessages messages;
    const std::string stem = name.stem();
    auto* const driver = GetGDALDriverManager()->GetDriverByName(format->driver);
    const std::string file = folder_.path + '/' + stem + format->ending;
    dataset_.reset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset_) Fail(messages.Error());
    CPLStringList options(CSLTokenizeString2(format->options, ";", 0));
    layer_ = dataset_->CreateLayer(stem.c_str(), nullptr, wkbNone, options.List());
    if (layer_ == nullptr) Fail(messages.Error());
    for (const auto& field : fields_) AddField(field);
    dataset_->StartTransaction();
}

GdalWriter::~GdalWriter() {
    const GdalMessages messages;
    dataset_.reset();
}

void GdalWriter::AddField(const SourceField& field) {
    const GdalMessages messages;
    const std::string driver = dataset_->GetDriverName();
    OGRFieldDefn definition(field.name.c_str(), TypeOf(field));
    if (driver == "GPKG" && field.kind == FieldKind::Logical) definition.SetSubType(OFSTBoolean);
    if (field.kind == FieldKind::Text) definition.SetWidth(field.length);
    if (driver == "ESRI Shapefile" && field.kind == FieldKind::Number) {
        definition.SetWidth(field.length);
        definition.SetPrecision(field.decimals);
    }
    if (driver == "ESRI Shapefile" && field.kind == FieldKind::Logical) definition.SetWidth(1);
    if (layer_->CreateField(&definition) != OGRERR_NONE) Fail(messages.Error());
}

void GdalWriter::Add(const std::vector<host::Variant>& values) {
    GdalMessages messages;
    OGRFeature feature(layer_->GetLayerDefn());
    for (std::size_t i = 0; i < fields_.size(); ++i)
        SetValue(feature, static_cast<int>(i), values[i]);
    const bool isTaken = layer_->CreateFeature(&feature) == OGRERR_NONE;
    const auto warnings = messages.TakeWarnings();
    if (!isTaken) Fail(messages.Error());
    if (!warnings.empty()) Fail(warnings.front());
}

void GdalWriter::Finish(const Store& store) {
    const SameDate date;
    const GdalMessages messages;
    dataset_->CommitTransaction();
    dataset_.reset();
    if (!messages.Error().empty()) Fail(messages.Error());
    const auto stem = folder_.path + '/' + std::filesystem::path(path_).stem().string();
    const auto path = std::filesystem::path(path_);
    for (const char* const ending : {".cpg", ".dbf", ".gpkg"}) {
        vsi_l_offset length = 0;
        auto* const content = VSIGetMemFileBuffer((stem + ending).c_str(), &length, FALSE);
        if (content == nullptr) continue;
        if (std::string_view(ending) == ".dbf") MendDbf({content, length}, fields_);
        const bool isTable = characters::FoldCase(path.extension()) == ending;
        store(isTable ? path_ : std::filesystem::path(path).replace_extension(ending).string(),
              {reinterpret_cast<const char*>(content), length});
    }
}

void GdalWriter::Fail(const std::string& fault) const {
    throw host::Failure(host::kFailureUnspecified, "GdalWriter",
                        "The table \"" + path_ + "\" cannot be written: " + fault + '.');
}

}  // namespace gis
