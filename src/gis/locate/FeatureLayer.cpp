#include "gis/locate/FeatureLayer.h"

#include <algorithm>
#include <string_view>

#include "desk/tables/PlainObjects.h"
#include "host/Failure.h"

namespace gis {

host::Variant FeatureRow::Value(std::int32_t index) const {
    const auto field = static_cast<std::size_t>(index);
    if (index < 0 || field >= fields_.fields.size())
        throw host::Failure(host::kFailureNotFound, "FeatureRow",
                            notes_.Path() + " has other fields than when it was opened.");
    if (IsMisfit(misfits_, field, *feature_)) return host::Null{};
    return ReadValue(fields_, *feature_, field, notes_);
}

FeatureLayer::FeatureLayer(const LayerOfSource& place)
    : state_(desk::FileState::At(place.source)),
      source_(place.source),
      open_(OpenLayerOf(place.source, place.layer, place.where)),
      notes_(place.Text()),
      fields_(DescribeFields(*open_.layer->GetLayerDefn(), IsUntyped(open_))),
      misfits_(FindMisfits(open_, place.where, fields_, notes_)) {
    const GdalMessages messages(open_.watch);
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
    const GdalMessages messages(open_.watch);
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
    const GdalMessages messages(open_.watch);
    OGRFeatureUniquePtr feature(open_.layer->GetNextFeature());
    if (!feature) {
        messages.ThrowIfFailed(Name());
        CheckUnchanged();
        row_ = nullptr;
        return row_;
    }
    if (!row_) row_ = std::make_shared<FeatureRow>(fields_, misfits_, notes_);
    row_->Take(std::move(feature));
    return row_;
}

void FeatureLayer::CheckUnchanged() const {
    if (!(desk::FileState::At(source_) == state_))
        throw host::Failure(host::kFailureUnspecified, "FeatureLayer",
                            Name() + " was changed by another program while it was read.");
}

void FeatureLayer::AddNotes(std::vector<std::string>& notes) const {
    notes.insert(notes.end(), notes_.All().begin(), notes_.All().end());
}

}  // namespace gis
