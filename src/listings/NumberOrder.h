#pragma once

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>

/// The order of texts by the numbers in them, for any representation of tokens. An Order gives
/// access to a token: Pieces(token) is a run of tokens, IsNumber(token) tells whether it compares
/// by Value(token), and Key(token) is its collation key.
namespace gazetteer {

inline std::int32_t Sign(std::partial_ordering order) {
    return int{std::is_gt(order)} - int{std::is_lt(order)};
}

template <class Order, class Run>
std::int32_t CompareRuns(const Order& order, const Run& run1, const Run& run2);

template <class Order, class Token>
std::int32_t CompareTokens(const Order& order, const Token& token1, const Token& token2) {
    if (order.IsNumber(token1) && order.IsNumber(token2))
        return Sign(order.Value(token1) <=> order.Value(token2));
    const auto& pieces1 = order.Pieces(token1);
    const auto& pieces2 = order.Pieces(token2);
    if (!pieces1.empty() && !pieces2.empty()) return CompareRuns(order, pieces1, pieces2);
    return Sign(order.Key(token1) <=> order.Key(token2));
}

/// With all common tokens equal the run with more tokens goes first: "MAIN ST N" before "MAIN ST".
template <class Order, class Run>
std::int32_t CompareRuns(const Order& order, const Run& run1, const Run& run2) {
    const std::size_t common = std::min(run1.size(), run2.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (run1[i] == run2[i]) continue;
        if (const std::int32_t result = CompareTokens(order, run1[i], run2[i])) return result;
    }
    return Sign(run2.size() <=> run1.size());
}

}  // namespace gazetteer
