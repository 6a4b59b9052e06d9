#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck.h>

#include "desk/objects/PropertySet.h"
#include "host/Failure.h"
#include "support/FailureOf.h"
#include "support/FixedSeed.h"

namespace {

using desk::PropertySet;
using host::Variant;

using Model = std::vector<std::pair<std::string, Variant>>;

struct Step {
    int kind;
    std::string name;
    int value;
};

constexpr int kNumber = 0;  // Below 0: stores a text.
constexpr int kRemove = 1;
constexpr int kCopy = 2;

/// Few keys, of bytes of any kind, and many steps, so that updates, removals and returns of a key
/// are all common. Up to the given kind; texts alone keep a set in packed form.
rc::Gen<std::vector<Step>> Steps(int lastKind) {
    return rc::gen::scale(
        8.0, rc::gen::container<std::vector<Step>>(rc::gen::construct<Step>(
                 rc::gen::inRange(-3, lastKind + 1),
                 rc::gen::construct<std::string>(rc::gen::inRange<std::size_t>(0, 30),
                                                 rc::gen::element('k', 'K', '\0', '\xC3')),
                 rc::gen::inRange(0, 3))));
}

struct Pair {
    std::shared_ptr<PropertySet> set = std::make_shared<PropertySet>();
    Model model;
};

void Apply(const Step& step, Pair& pair) {
    auto& model = pair.model;
    const auto known = std::find_if(model.begin(), model.end(),
                                    [&](const auto& item) { return item.first == step.name; });
    if (step.kind == kRemove) {
        pair.set->RemoveItem(step.name);
        if (known != model.end()) model.erase(known);
        return;
    }
    const Variant value = step.kind == kNumber
                              ? Variant(std::int32_t{step.value})
                              : Variant(std::string(static_cast<std::size_t>(step.value), 't'));
    if (step.value == 0) RC_ASSERT(pair.set->Append(step.name, value) == (known == model.end()));
    if (step.value != 0) pair.set->SetItem(step.name, value);
    if (known == model.end())
        model.emplace_back(step.name, value);
    else if (step.value != 0)
        known->second = value;
}

void ExpectSame(const PropertySet& set, const Model& model) {
    RC_ASSERT(set.Count() == static_cast<std::int32_t>(model.size()));
    const auto items = set.AllItems();
    Model held;
    for (std::size_t i = 0; i < items.names.size(); ++i)
        held.emplace_back(items.names[i], items.values.at(i));
    RC_ASSERT(held == model);
    for (const auto& [name, value] : model) RC_ASSERT(set.Item(name) == value);
    const auto first = set.FirstNames(3);
    RC_ASSERT(first.size() == std::min<std::size_t>(3, model.size()));
    RC_ASSERT(std::equal(first.begin(), first.end(), items.names.begin()));
}

TEST(PropertySet, AndItsCopiesKeepTheOrderOfFirstEntryThroughAnySteps) {
    EXPECT_TRUE(rc::check("order", [] {
        std::vector<Pair> pairs(1);
        for (const int lastKind : {kCopy, kNumber - 1, kCopy}) {
            for (const Step& step : *Steps(lastKind)) {
                Pair& pair = pairs[*rc::gen::inRange<std::size_t>(0, pairs.size())];
                if (step.kind != kCopy)
                    Apply(step, pair);
                else if (pairs.size() < 8)
                    pairs.push_back(
                        {std::dynamic_pointer_cast<PropertySet>(pair.set->Copy()), pair.model});
            }
            for (const Pair& pair : pairs) ExpectSame(*pair.set, pair.model);
            pairs.resize(pairs.size() + 1);
        }
    }));
}

TEST(TextItems, TellApartNamesWhoseHashesMeet) {
    desk::TextItems texts;
    constexpr std::size_t kNames = 400'000;  // Some 18 pairs with the same 32 bits.
    for (std::size_t i = 0; i < kNames; ++i) texts.Add(std::to_string(i), "t" + std::to_string(i));
    ASSERT_EQ(texts.IndexNames(), std::nullopt);
    for (std::size_t i = 0; i < kNames; ++i)
        ASSERT_EQ(texts.Find(std::to_string(i)), "t" + std::to_string(i));
    texts.Add("399999", "");
    EXPECT_EQ(texts.IndexNames(), kNames);
}

TEST(PropertySet, TakesAMillionKeysAndLosesThemFromTheFront) {
    const auto start = std::chrono::steady_clock::now();
    PropertySet set;
    constexpr int kKeys = 1'000'000;
    for (int i = 0; i < kKeys; ++i) set.SetItem(std::to_string(i), std::to_string(i));
    for (int i = 0; i < kKeys - 1; ++i) set.RemoveItem(std::to_string(i));
    EXPECT_EQ(set.AllItems().names, std::vector<std::string>{std::to_string(kKeys - 1)});
    // A removal that moves the keys behind it would take hours.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST(PropertySet, RefusesToCopyASetThatHoldsItselfAndNamesAnAbsentKey) {
    auto set = std::make_shared<PropertySet>();
    set->SetItem("self", host::Ref<host::IHostObject>(set));
    EXPECT_THROW(set->Copy(), host::Failure);
    set->RemoveItem("self");
    EXPECT_NO_THROW(set->Copy());
    EXPECT_EQ(support::FailureOf([&] { set->Item("self"); }).description,
              "There is no property named \"self\".");
}

}  // namespace
