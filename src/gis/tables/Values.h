#pragma once

#include <ogr_feature.h>
#include <string>
#include <vector>

#include "gis/module/SourceTable.h"

namespace gis {

/// Stands for a byte that is no UTF-8.
inline constexpr char kNoUtf8[] = "\uFFFD";

/// What is wrong with a text of such bytes, and what helps.
inline constexpr char kHasNoUtf8[] =
    "bytes that are no UTF-8 (a text file of Windows is converted by \"iconv -f WINDOWS-1252 -t "
    "UTF-8\")";

/// How the fields of a layer are read.
struct LayerFields {
    /// Whether the format knows texts only, as CSV does. A text that is written exactly as a number
    /// would be is then one: "12.5", but not "007", "12.50" or "1E5".
    bool isUntyped = false;
    std::vector<SourceField> fields;
};

LayerFields DescribeFields(const OGRFeatureDefn& layer, bool isUntyped);

/// Returns the value of a field, from 0. Faults are added to the notes.
host::Variant ReadValue(const LayerFields& fields, const OGRFeature& feature, std::size_t field,
                        TableNotes& notes);

/// A value as a text that loses no digit; empty for no value.
std::string WholeText(const host::Variant& value);

}  // namespace gis
