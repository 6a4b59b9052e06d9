#pragma once

#include <cstdint>

#include "host/Host.h"
#include "host/SortPreparation.h"
#include "listings/NumberTokens.h"

namespace gazetteer {

/// Orders texts by the numbers in them: "AVE 2" before "AVE 10". Every field of the index table is
/// text, and all sort columns go through this one comparison; it alone decides the order of the
/// listings. It is no strict order: numbers, letters and mixed texts can form a circle.
class clsTableSortNumberAware : public host::ITableSortCallBack,
                                public host::ITableSortPreparation {
public:
    explicit clsTableSortNumberAware(host::IHost& host) : host_(host), tokenizer_(host.Locale()) {}

    /// Top procedure. -1 if the first value goes before the second, 1 if after, 0 if they tie or
    /// the comparison failed. The field does not matter.
    std::int32_t Compare(const host::Variant& value1, const host::Variant& value2,
                         std::int32_t fieldIndex, std::int32_t fieldSortIndex) override;

    /// Null, without a dialog, where some value has no text; Compare reports such a value.
    host::Ref<host::IPreparedValues> Prepare(const host::SortValues& values,
                                             std::int32_t fieldIndex,
                                             std::int32_t fieldSortIndex) override;

private:
    std::int32_t CompareStringsWithNumbers(const host::Variant& value1,
                                           const host::Variant& value2);

    host::IHost& host_;
    NumberTokenizer tokenizer_;
};

}  // namespace gazetteer
