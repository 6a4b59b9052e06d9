#pragma once

#include <cstdint>
#include <string>

#include "app/tables/TableOutput.h"

namespace app {

/// Finds the length of a field from its values.
class FieldMeasure {
public:
    void Take(const host::Variant& value);
    /// Returns the field that holds all values.
    gis::SourceField FieldFor(const OutputField& field) const;

private:
    void TakeNumber(double number);

    std::int32_t bytes_ = 0;   ///< Of the longest text.
    std::int32_t digits_ = 0;  ///< Before the decimal sign, with a minus sign.
    std::int32_t decimals_ = 0;
    bool hasText_ = false;
    bool hasNumber_ = false;
};

}  // namespace app
