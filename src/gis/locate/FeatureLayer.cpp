#include "gis/locate/FeatureLayer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "desk/tables/PlainObjects.h"
#include "host/Failure.h"

namespace gis {

FeatureLayer::FeatureLayer(const LayerOfSource& place)
    : open_(OpenLayerOf(place.source, place.layer, place.where)),
      notes_(place.Text()),
      fields_(DescribeFields(*open_.layer->GetLayerDefn(), IsUntyped(open_))) {
    open_.layer->ResetReading();
}

const OGRSpatialReference* FeatureLayer::Reference() const {
    const auto* const reference = open_.layer->GetSpatialRef();
    if (reference == nullptr || reference->GetName() == nullptr) return reference;
    // As a GeoPackage has them, whose layers must name one.
    const std::string_view name = reference->GetName();
    const bool isUnknown = name == "Undefined geographic SRS" || name == "Undefined Cartesian SRS";
    return isUnknown ? nullptr : reference;
}

std::int64_t FeatureLayer::Count() const {
    const GdalMessages messages;
    const bool isFast = open_.layer->TestCapability(OLCFastFeatureCount) != 0;
    return isFast ? std::max<std::int64_t>(0, open_.layer->GetFeatureCount()) : 0;
}

std::int32_t FeatureLayer::Field(const std::string& name) const {
    std::vector<std::string> names;
    std::string listed;
    for (const auto& field : fields_.fields) {
        names.push_back(field.name);
        listed += (listed.empty() ? "" : ", ") + field.name;
    }
    const std::int32_t index = desk::FieldNames(names).Find(name);
    if (index >= 0) return index;
    throw host::Failure(host::kFailureNotFound, "FeatureLayer",
                        Name() + " has no field \"" + name +
                            (listed.empty() ? "\"." : "\"; its fields are " + listed + '.'));
}

const host::Ref<FeatureRow>& FeatureLayer::Next() {
    const GdalMessages messages;
    OGRFeatureUniquePtr feature(open_.layer->GetNextFeature());
    if (!feature) {
        messages.ThrowIfFailed(Name());
        row_ = nullptr;
        return row_;
    }
    if (!row_) row_ = std::make_shared<FeatureRow>(fields_, notes_);
    row_->Take(std::move(feature));
    return row_;
}

std::string LabelOf(const host::Variant& value) {
    if (const auto* const text = std::get_if<std::string>(&value)) return *text;
    if (const auto* const number = std::get_if<std::int32_t>(&value))
        return std::to_string(*number);
    const auto* const number = std::get_if<double>(&value);
    if (number == nullptr) return {};
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), *number);
    return {text.data(), end.ptr};
}

}  // namespace gis
