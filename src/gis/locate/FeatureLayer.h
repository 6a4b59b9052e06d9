#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desk/files/Files.h"
#include "gis/module/Locate.h"
#include "gis/tables/Dataset.h"
#include "gis/tables/Misfits.h"
#include "gis/tables/Values.h"

namespace gis {

/// A feature's fields as a row of a table.
class FeatureRow : public host::IHostRow {
public:
    FeatureRow(const LayerFields& fields, const Misfits& misfits, TableNotes& notes)
        : fields_(fields), misfits_(misfits), notes_(notes) {}

    void Take(OGRFeatureUniquePtr feature) { feature_ = std::move(feature); }
    OGRFeature& Feature() const { return *feature_; }

    /// Throws host::Failure for a field that the layer does not have any more.
    host::Variant Value(std::int32_t index) const override;
    void SetValue(std::int32_t, host::Variant) override { FailReadOnly(notes_.Path()); }
    std::int32_t OID() const override { return -1; }

private:
    const LayerFields& fields_;
    const Misfits& misfits_;
    TableNotes& notes_;
    OGRFeatureUniquePtr feature_;
};

/// A layer that is read once, with its geometries.
class FeatureLayer {
public:
    /// Throws host::Failure with one sentence if it cannot be opened or the condition is wrong.
    explicit FeatureLayer(const LayerOfSource& place);
    FeatureLayer(const FeatureLayer&) = delete;
    FeatureLayer& operator=(const FeatureLayer&) = delete;

    const std::string& Name() const { return notes_.Path(); }
    /// Null if the layer has none, or tells that it is not known.
    const OGRSpatialReference* Reference() const;
    /// Number of features; 0 if the layer has to be read to know.
    std::int64_t Count() const;
    /// Index of a field. Throws host::Failure that names the fields there are.
    std::int32_t Field(const std::string& name) const;
    /// Returns the next feature; null at the end. Throws if the source fails or was changed since
    /// it was opened.
    const host::Ref<FeatureRow>& Next();
    /// Adds the notes about what was read.
    void AddNotes(std::vector<std::string>& notes) const;

private:
    void CheckUnchanged() const;

    desk::FileState state_;  ///< Of the source's file when it was opened.
    std::string source_;
    OpenLayer open_;
    TableNotes notes_;
    LayerFields fields_;
    Misfits misfits_;
    host::Ref<FeatureRow> row_;
};

}  // namespace gis
