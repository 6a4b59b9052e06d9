#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck.h>

#include "desk/objects/PropertySet.h"
#include "desk/objects/Symbols.h"
#include "host/Failure.h"
#include "support/FixedSeed.h"

namespace {

using desk::PropertySet;
using host::Variant;

struct Step {
    bool remove;
    int key;
    int value;
};

/// Few keys and many steps, so that updates, removals and returns of a key are all common.
rc::Gen<Step> AnyStep() {
    return rc::gen::construct<Step>(rc::gen::weightedElement<bool>({{3, true}, {4, false}}),
                                    rc::gen::inRange(0, 90), rc::gen::arbitrary<int>());
}

using Model = std::vector<std::pair<std::string, int>>;

void Apply(const Step& step, PropertySet& set, Model& model) {
    const std::string name = "key " + std::to_string(step.key);
    const auto known = std::find_if(model.begin(), model.end(),
                                    [&](const auto& item) { return item.first == name; });
    if (step.remove) {
        set.RemoveItem(name);
        if (known != model.end()) model.erase(known);
        return;
    }
    set.SetItem(name, std::int32_t{step.value});
    if (known == model.end()) {
        model.emplace_back(name, step.value);
    } else {
        known->second = step.value;
    }
}

void ExpectSame(const PropertySet& set, const Model& model) {
    RC_ASSERT(set.Count() == static_cast<std::int32_t>(model.size()));
    const auto items = set.AllItems();
    RC_ASSERT(items.names.size() == model.size());
    RC_ASSERT(items.values.size() == model.size());
    for (std::size_t i = 0; i < model.size(); ++i) {
        RC_ASSERT(items.names[i] == model[i].first);
        RC_ASSERT(std::get<std::int32_t>(items.values[i]) == model[i].second);
        RC_ASSERT(std::get<std::int32_t>(set.Item(model[i].first)) == model[i].second);
    }
}

TEST(PropertySet, KeepsTheOrderOfFirstEntryThroughAnySteps) {
    EXPECT_TRUE(rc::check("order", [] {
        const auto steps = *rc::gen::scale(8.0, rc::gen::container<std::vector<Step>>(AnyStep()));
        PropertySet set;
        Model model;
        for (const Step& step : steps) Apply(step, set, model);
        ExpectSame(set, model);
        const auto copy = std::dynamic_pointer_cast<PropertySet>(set.Copy());
        ExpectSame(*copy, model);
    }));
}

TEST(PropertySet, NamesAreBytesOfAnyKind) {
    PropertySet set;
    const std::vector<std::string> names = {"", "a", "A", std::string("a\0b", 3), "\xC3\x89"};
    for (std::size_t i = 0; i < names.size(); ++i)
        set.SetItem(names[i], static_cast<std::int32_t>(i));
    EXPECT_EQ(set.AllItems().names, names);
    set.RemoveItem("");
    EXPECT_EQ(set.Count(), 4);
    EXPECT_EQ(std::get<std::int32_t>(set.Item("A")), 2);
}

TEST(PropertySet, NamesTheAbsentKey) {
    PropertySet set;
    set.SetItem("Gone", true);
    set.RemoveItem("Gone");
    set.RemoveItem("Never there");
    try {
        set.Item("Gone");
        FAIL() << "an absent name was found";
    } catch (const host::Failure& failure) {
        EXPECT_EQ(failure.description, "There is no property named \"Gone\".");
    }
}

TEST(PropertySet, TakesAMillionKeysAndLosesThemFromTheFront) {
    const auto start = std::chrono::steady_clock::now();
    PropertySet set;
    constexpr int kKeys = 1'000'000;
    for (int i = 0; i < kKeys; ++i) set.SetItem(std::to_string(i), std::int32_t{i});
    for (int i = 0; i < kKeys - 1; ++i) set.RemoveItem(std::to_string(i));
    EXPECT_EQ(set.AllItems().names, std::vector<std::string>{std::to_string(kKeys - 1)});
    // A removal that moves the keys behind it would take hours.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST(PropertySet, CopiesSetsAndSymbolsInsideIt) {
    auto inner = std::make_shared<PropertySet>();
    auto fill = std::make_shared<desk::FillSymbol>();
    inner->SetItem("fill", host::Ref<host::IHostObject>(fill));
    PropertySet outer;
    outer.SetItem("inner", host::Ref<host::IHostObject>(inner));
    outer.SetItem("nothing", host::Ref<host::IHostObject>());

    const auto copy = std::dynamic_pointer_cast<PropertySet>(outer.Copy());
    fill->Color()->SetRGB(0x123456);
    inner->SetItem("late", true);

    const auto value = copy->Item("inner");
    const auto copiedInner =
        host::As<host::IHostPropertySet>(std::get<host::Ref<host::IHostObject>>(value));
    ASSERT_TRUE(copiedInner);
    EXPECT_EQ(copiedInner->Count(), 1);
    const auto fillValue = copiedInner->Item("fill");
    const auto copiedFill =
        host::As<host::IHostFillSymbol>(std::get<host::Ref<host::IHostObject>>(fillValue));
    ASSERT_TRUE(copiedFill);
    EXPECT_EQ(copiedFill->Color()->RGB(), 0U);
    EXPECT_EQ(std::get<host::Ref<host::IHostObject>>(copy->Item("nothing")), nullptr);
}

TEST(PropertySet, RefusesToCopyASetThatHoldsItself) {
    auto set = std::make_shared<PropertySet>();
    set->SetItem("self", host::Ref<host::IHostObject>(set));
    EXPECT_THROW(set->Copy(), host::Failure);
    set->RemoveItem("self");
    EXPECT_NO_THROW(set->Copy());
}

}  // namespace
