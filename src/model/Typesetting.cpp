#include "model/Typesetting.h"

#include <algorithm>
#include <array>

#include "model/GeneralFunctions.h"
#include "model/Settings.h"
#include "model/TypesettingKeys.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

using enum ValueKind;
using host::IHostPropertySet;
using host::Ref;

constexpr char kTypesettingKey[] = "GazetteerTypesetting";

constexpr std::array kKeys = {
    TypesettingKey{
        "HeadingGroups", String, &Typesetting::headingGroups, {kByFirstCharacter, kByAlphabet}},
    TypesettingKey{"DigitsHeading", String, &Typesetting::digitsHeading},
    TypesettingKey{"KeepHeadings", Boolean, &Typesetting::keepHeadings},
    TypesettingKey{"Continued", String, &Typesetting::continued},
    TypesettingKey{"ContinuedAt", String, &Typesetting::continuedAt, {kAtPage, kAtColumnGroup}},
    TypesettingKey{"BalanceLastPage", Boolean, &Typesetting::balanceLastPage},
    TypesettingKey{"GroupReferences", Boolean, &Typesetting::groupReferences},
    TypesettingKey{"HangingIndent", Double, &Typesetting::hangingIndent},
    TypesettingKey{"BreakOpportunities", Boolean, &Typesetting::breakOpportunities},
    TypesettingKey{"ReferenceLine", Boolean, &Typesetting::referenceLine},
    TypesettingKey{"LeaderStyle",
                   String,
                   &Typesetting::leaderStyle,
                   {kPlainLeader, kAlignedLeader, kNoLeader}},
    TypesettingKey{"LeaderDot", String, &Typesetting::leaderDot},
    TypesettingKey{"LeaderBlanks", Long, &Typesetting::leaderBlanks, {}, Writer::User, 20},
    TypesettingKey{"LeaderLeast", Long, &Typesetting::leaderLeast, {}, Writer::User, 1000},
    TypesettingKey{"LineGrid", Boolean, &Typesetting::lineGrid},
    TypesettingKey{"PlainHeadings", Boolean, &Typesetting::plainHeadings},
    TypesettingKey{
        "Direction", String, &Typesetting::direction, {kLeftToRight, kRightToLeft, kByLocale}},
    TypesettingKey{"Version", Integer, &Typesetting::version, {}, Writer::Run},
};

// The set under the key; null without one, or where another kind of value stands there.
Ref<IHostPropertySet> SetOf(const IHostPropertySet& maker) {
    const auto names = NamesOf(maker);
    if (std::ranges::find(names, kTypesettingKey) == names.end()) return nullptr;
    return ToObject<IHostPropertySet>(maker.Item(kTypesettingKey));
}

}  // namespace

std::span<const char* const> TypesettingKey::Choices() const {
    const auto* const end = std::ranges::find(choices, nullptr);
    return {choices.begin(), static_cast<std::size_t>(end - choices.begin())};
}

std::span<const TypesettingKey> TypesettingKeys() {
    return kKeys;
}

const TypesettingKey* FindTypesettingKey(std::string_view name) {
    const auto* const found =
        std::ranges::find(kKeys, name, [](const auto& key) { return std::string_view(key.name); });
    return found == kKeys.end() ? nullptr : &*found;
}

host::Variant ValueOf(const TypesettingKey& key, const Typesetting& typesetting) {
    if (key.kind == Integer) return static_cast<std::int16_t>(typesetting.version);
    return std::visit([&](auto field) { return AsVariant(typesetting.*field); }, key.field);
}

void SetValue(const TypesettingKey& key, const host::Variant& value, host::IHostLocale& locale,
              Typesetting& typesetting) {
    std::visit(
        [&]<class T>(T Typesetting::*field) {
            typesetting.*field = ValueAs<T>(value, locale);
            if constexpr (std::is_same_v<T, std::string>) {
                const auto choices = key.Choices();
                if (!choices.empty() &&
                    std::ranges::find(choices, typesetting.*field) == choices.end())
                    typesetting.*field = Typesetting().*field;
            }
            if constexpr (std::is_same_v<T, std::int32_t>)
                if (key.kind == Long)
                    typesetting.*field = std::clamp(typesetting.*field, 0, key.most);
        },
        key.field);
}

Typesetting PrintTypesetting() {
    Typesetting print;
    print.headingGroups = kByAlphabet;
    print.keepHeadings = true;
    print.balanceLastPage = true;
    print.hangingIndent = 0.1;
    print.breakOpportunities = true;
    print.referenceLine = true;
    print.leaderStyle = kAlignedLeader;
    print.leaderLeast = 2;
    print.lineGrid = true;
    print.plainHeadings = true;
    print.direction = kByLocale;
    return print;
}

std::optional<Typesetting> StoredTypesetting(const Ref<host::IHostElement>& element,
                                             host::IHostLocale& locale) {
    const auto maker = CorvaneProperties(element);
    const auto set = maker ? SetOf(*maker) : nullptr;
    if (!set) return std::nullopt;
    Typesetting typesetting;
    const auto names = NamesOf(*set);
    for (const TypesettingKey& key : kKeys) {
        if (std::ranges::find(names, key.name) == names.end()) continue;
        try {
            SetValue(key, set->Item(key.name), locale, typesetting);
        } catch (host::Failure& failure) {
            failure.AddFact("key", std::string("Typesetting.") + key.name);
            throw;
        }
    }
    return typesetting;
}

void StoreTypesetting(host::IHostPropertySetFactory& host, const Ref<host::IHostElement>& element,
                      const std::optional<Typesetting>& typesetting) {
    const auto maker = Require<IHostPropertySet>(CorvaneProperties(element));
    if (!typesetting) return maker->RemoveItem(kTypesettingKey);
    const auto old = SetOf(*maker);
    const auto set = old ? CopySet(host, old) : host.NewPropertySet();
    for (const TypesettingKey& key : kKeys) set->SetItem(key.name, ValueOf(key, *typesetting));
    maker->SetItem(kTypesettingKey, Ref<host::IHostObject>(set));
}

}  // namespace gazetteer
