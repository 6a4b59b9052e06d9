#include "listings/NumberAwareSort.h"

#include <algorithm>

#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

std::int32_t Sign(int order) {
    return (order > 0) - (order < 0);
}

std::int32_t CompareTokens(const NumberTokens& tokens1, const NumberTokens& tokens2);

std::int32_t CompareToken(const NumberToken& token1, const NumberToken& token2) {
    if (token1.numeric && token2.numeric)
        return (token1.value > token2.value) - (token1.value < token2.value);
    if (!token1.separated.empty() && !token2.separated.empty())
        return CompareTokens(token1.separated, token2.separated);
    return Sign(token1.key.compare(token2.key));
}

// With all common tokens equal the text with more tokens goes first: "MAIN ST N" before "MAIN ST".
std::int32_t CompareTokens(const NumberTokens& tokens1, const NumberTokens& tokens2) {
    const std::size_t common = std::min(tokens1.size(), tokens2.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (tokens1[i] == tokens2[i]) continue;
        if (const std::int32_t result = CompareToken(*tokens1[i], *tokens2[i])) return result;
    }
    return (tokens1.size() < tokens2.size()) - (tokens1.size() > tokens2.size());
}

const std::string& TextIn(const host::Variant& value, host::IHostLocale& locale,
                          std::string& storage) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return storage = ToText(value, locale);
}

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
    return CompareTokens(tokenizer_.Tokens(text1), tokenizer_.Tokens(text2));
} catch (...) {
    PassOn("CompareStringsWithNumbers", kSortLabel);
}

}  // namespace gazetteer
