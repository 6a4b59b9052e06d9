#include "desk/locale/LocaleIndex.h"

#include <string>
#include <unicode/coleitr.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>

#include "host/Failure.h"

namespace desk {
namespace {

using Index = icu::AlphabeticIndex::ImmutableIndex;

bool IsLatin(icu::Locale locale, UErrorCode& status) {
    locale.addLikelySubtags(status);
    const std::string script = locale.getScript();
    return script.empty() || script == "Latn";
}

/// Whether ICU lists ideographs under radicals, in an order that is not theirs.
bool HasRadicals(const Index& index) {
    for (std::int32_t i = 0; i < index.getBucketCount(); ++i)
        if (u_hasBinaryProperty(index.getBucket(i)->getLabel().char32At(0), UCHAR_IDEOGRAPHIC) != 0)
            return true;
    return false;
}

/// Whether ICU puts the texts behind this bucket back into an earlier one: with a label IE, those
/// from "If" on are again listed under I.
bool DividesAnother(const Index& index, std::int32_t bucket, UErrorCode& status) {
    constexpr char16_t kGreatest = 0xFFFF;  // Sorts after every letter.
    const icu::UnicodeString behind =
        icu::UnicodeString(index.getBucket(bucket)->getLabel()).append(kGreatest).append(kGreatest);
    return index.getBucketIndex(behind, status) < bucket;
}

/// The labels of an index but those that divide another.
icu::UnicodeSet UndividedLabels(const Index& index, UErrorCode& status) {
    icu::UnicodeSet labels;
    for (std::int32_t i = 0; i < index.getBucketCount(); ++i)
        if (index.getBucket(i)->getLabelType() == U_ALPHAINDEX_NORMAL &&
            !DividesAnother(index, i, status))
            labels.add(index.getBucket(i)->getLabel());
    return labels;
}

bool HasDividing(const Index& index, UErrorCode& status) {
    for (std::int32_t i = 0; i < index.getBucketCount(); ++i)
        if (index.getBucket(i)->getLabelType() == U_ALPHAINDEX_NORMAL &&
            DividesAnother(index, i, status))
            return true;
    return false;
}

/// Null if ICU fails.
std::unique_ptr<Index> IndexOf(const icu::UnicodeSet& labels, const icu::RuleBasedCollator& order,
                               UErrorCode& status) {
    icu::AlphabeticIndex index(order.clone(), status);
    index.addLabels(labels, status);
    return std::unique_ptr<Index>(index.buildImmutableIndex(status));
}

std::unique_ptr<Index> IndexOf(const icu::Locale& locale, const icu::RuleBasedCollator& order,
                               UErrorCode& status) {
    icu::AlphabeticIndex index(order.clone(), status);
    index.addLabels(locale, status);
    if (IsLatin(locale, status)) index.addLabels(icu::Locale::getEnglish(), status);
    std::unique_ptr<Index> built(index.buildImmutableIndex(status));
    if (U_FAILURE(status) != 0) return built;
    if (HasRadicals(*built)) return IndexOf(icu::UnicodeSet(), order, status);
    if (HasDividing(*built, status)) return IndexOf(UndividedLabels(*built, status), order, status);
    return built;
}

}  // namespace

std::unique_ptr<Index> LocaleIndex(const icu::Locale& locale, const icu::RuleBasedCollator& order) {
    UErrorCode status = U_ZERO_ERROR;
    auto index = IndexOf(locale, order, status);
    if (U_FAILURE(status) != 0)
        throw host::Failure(host::kFailureUnspecified, "LocaleIndex",
                            std::string("There are no index letters for the locale \"") +
                                locale.getName() + "\": " + u_errorName(status) + '.');
    return index;
}

bool IsSortedAsSeveral(const icu::UnicodeString& label, const icu::RuleBasedCollator& order) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::CollationElementIterator> elements(
        order.createCollationElementIterator(label));
    int letters = 0;
    for (std::int32_t element = elements->next(status);
         element != icu::CollationElementIterator::NULLORDER; element = elements->next(status)) {
        // The second half of a long primary difference comes without a secondary one.
        const bool isLetter = icu::CollationElementIterator::primaryOrder(element) != 0 &&
                              icu::CollationElementIterator::secondaryOrder(element) != 0;
        letters += isLetter ? 1 : 0;
    }
    return letters > 1;
}

}  // namespace desk
