#include "listings/PreparedTexts.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "host/Failure.h"
#include "listings/NumberOrder.h"
#include "listings/NumberTokens.h"

namespace gazetteer {
namespace {

using host::SortLead;

// Kinds of digits. Numbers and letters compare by different ranks, mixed tokens by their pieces.
constexpr std::uint32_t kLetters = 0U << SortLead::kKindShift;
constexpr std::uint32_t kNumber = 1U << SortLead::kKindShift;
constexpr std::uint32_t kMixed = SortLead::kOpenKind << SortLead::kKindShift;
constexpr std::uint32_t kKindMask = 3U << SortLead::kKindShift;
constexpr std::uint32_t kMaxTokens = 1U << SortLead::kKindShift;

// The first bytes of a key as a number that orders as they do; most keys differ there.
std::uint64_t Prefix(const std::string& key) {
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < sizeof prefix; ++i)
        prefix = prefix << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0);
    return prefix;
}

// Passes every item and its rank to giveRank; equal items share a rank.
template <class Items, class GiveRank>
void Rank(Items& items, const GiveRank& giveRank) {
    std::sort(items.begin(), items.end());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0 && items[i - 1] < items[i]) ++rank;
        giveRank(items[i], rank);
    }
}

struct RankedKey {
    std::uint64_t prefix;
    const NumberToken* token;
    bool operator<(const RankedKey& other) const {
        return prefix != other.prefix ? prefix < other.prefix : token->key < other.token->key;
    }
};

struct RankedValue {
    double value;
    std::uint32_t token;
    bool operator<(const RankedValue& other) const { return value < other.value; }
};

void RankKeys(const NumberTokenizer& tokenizer, std::vector<RankedToken>& ranked) {
    std::vector<RankedKey> keys;
    keys.reserve(ranked.size());
    for (const NumberToken* token : tokenizer.All()) keys.push_back({Prefix(token->key), token});
    Rank(keys, [&](const RankedKey& key, std::uint32_t rank) {
        ranked[key.token->number].keyRank = rank;
    });
}

void RankValues(const NumberTokenizer& tokenizer, std::vector<RankedToken>& ranked) {
    std::vector<RankedValue> values;
    for (const NumberToken* token : tokenizer.All())
        if (token->numeric) values.push_back({token->value, token->number});
    Rank(values, [&](const RankedValue& value, std::uint32_t rank) {
        ranked[value.token].digit = kNumber | rank;
    });
}

}  // namespace

host::Ref<PreparedTexts> PreparedTexts::Make(const host::SortValues& values,
                                             host::IHostLocale& locale) {
    auto texts = std::make_shared<PreparedTexts>();
    NumberTokenizer tokenizer(locale);
    host::Variant valueStorage;
    std::string textStorage;
    texts->starts_.reserve(std::size_t{values.Count()} + 1);
    texts->starts_.push_back(0);
    for (std::uint32_t i = 0; i < values.Count(); ++i) {
        const host::Variant& value = values.Value(i, valueStorage);
        try {
            tokenizer.Split(TextIn(value, locale, textStorage), [&](const NumberToken* token) {
                texts->words_.push_back(token->number);
            });
        } catch (const host::Failure&) {
            return nullptr;
        }
        if (texts->words_.size() > std::numeric_limits<std::uint32_t>::max()) return nullptr;
        texts->starts_.push_back(static_cast<std::uint32_t>(texts->words_.size()));
    }
    if (tokenizer.All().size() > kMaxTokens) return nullptr;
    texts->TakeTokens(tokenizer, values);
    return texts;
}

void PreparedTexts::TakeTokens(const NumberTokenizer& tokenizer, const host::SortValues& values) {
    tokens_.resize(tokenizer.All().size());
    values.Pause();
    RankKeys(tokenizer, tokens_);
    values.Pause();
    for (const NumberToken* token : tokenizer.All()) {
        RankedToken& ranked = tokens_[token->number];
        ranked.firstPiece = static_cast<std::uint32_t>(pieces_.size());
        ranked.pieceCount = static_cast<std::uint32_t>(token->separated.size());
        for (const NumberToken* piece : token->separated) pieces_.push_back(piece->number);
        ranked.digit =
            token->separated.empty() ? kLetters | ranked.keyRank : kMixed | token->number;
    }
    values.Pause();
    RankValues(tokenizer, tokens_);
    values.Pause();
}

bool PreparedTexts::IsNumber(std::uint32_t token) const {
    return (tokens_[token].digit & kKindMask) == kNumber;
}

host::SortLead PreparedTexts::Lead(std::uint32_t position) const {
    const Run text = Text(position);
    SortLead lead;
    lead.digits.fill(SortLead::kEnd);
    for (std::size_t i = 0; i < std::min(text.size(), SortLead::kDigits); ++i)
        lead.digits[i] = tokens_[text[i]].digit;
    return lead;
}

std::int32_t PreparedTexts::Compare(std::uint32_t position1, std::uint32_t position2) const {
    return CompareRuns(*this, Text(position1), Text(position2));
}

}  // namespace gazetteer
