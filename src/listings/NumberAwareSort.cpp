#include "listings/NumberAwareSort.h"

#include "listings/NumberOrder.h"
#include "listings/NumberTokens.h"
#include "listings/PreparedTexts.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

/// The order over tokens as the tokenizer keeps them, see NumberOrder.h.
struct KeptTokens {
    static bool IsNumber(const NumberToken* token) { return token->numeric; }
    static double Value(const NumberToken* token) { return token->value; }
    static const std::string& Key(const NumberToken* token) { return token->key; }
    static const NumberTokens& Pieces(const NumberToken* token) { return token->separated; }
};

}  // namespace

std::int32_t clsTableSortNumberAware::Compare(const host::Variant& value1,
                                              const host::Variant& value2, std::int32_t,
                                              std::int32_t) try {
    return CompareStringsWithNumbers(value1, value2);
} catch (...) {
    ShowAtTop(host_.Dialogs(), "ITableSortCallBack_Compare", kSortLabel);
    return 0;
}

std::int32_t clsTableSortNumberAware::CompareStringsWithNumbers(const host::Variant& value1,
                                                                const host::Variant& value2) try {
    std::string storage1;
    std::string storage2;
    const std::string& text1 = TextIn(value1, host_.Locale(), storage1);
    const std::string& text2 = TextIn(value2, host_.Locale(), storage2);
    return CompareRuns(KeptTokens(), tokenizer_.Tokens(text1), tokenizer_.Tokens(text2));
} catch (...) {
    PassOn("CompareStringsWithNumbers", kSortLabel);
}

host::Ref<host::IPreparedValues> clsTableSortNumberAware::Prepare(const host::SortValues& values,
                                                                  std::int32_t, std::int32_t) {
    return PreparedTexts::Make(values, host_.Locale());
}

}  // namespace gazetteer
