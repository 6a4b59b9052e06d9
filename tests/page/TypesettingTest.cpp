// The page "Typesetting" beside the other page of the sheet, on real elements.

#include <QComboBox>
#include <QSpinBox>
#include <set>
#include <tuple>

#include "model/Typesetting.h"
#include "model/TypesettingKeys.h"
#include "page/PageStory.h"
#include "sample/SampleIndex.h"
#include "typesetting/TypesettingForm.h"

namespace page_test {
namespace {

using gazetteer::PrintTypesetting;
using gazetteer::Subject;
using gazetteer::Typesetting;
using gazetteer::TypesettingKey;
using gazetteer::ValueKind;

using Set = std::optional<Typesetting>;

// Every setting has an effect beside these.
Typesetting AllInUse() {
    Typesetting all;
    all.headingGroups = gazetteer::kByAlphabet;
    all.continued = "{letter} on";
    all.leaderStyle = gazetteer::kAlignedLeader;
    return all;
}

/// Other values of a key than those of AllInUse.
std::vector<host::Variant> OtherValues(const TypesettingKey& key) {
    const auto present = ValueOf(key, AllInUse());
    std::vector<host::Variant> values;
    if (key.kind == ValueKind::Boolean) values = {true};
    if (key.kind == ValueKind::Double) values = {0.25, -0.5};
    if (key.kind == ValueKind::Long) values = {std::int32_t{1}, key.most};
    if (key.kind == ValueKind::String) values = {std::string("Stra\u00DFe *")};
    if (!key.Choices().empty()) values.assign(key.Choices().begin(), key.Choices().end());
    std::erase(values, present);
    return values;
}

class Typeset : public PageStory {
public:
    Typeset() { Open(4.5); }

    gazetteer::TypesettingForm& Form2() const {
        return *Sheet().findChild<gazetteer::TypesettingForm*>();
    }
    template <class T = QWidget>
    T& Setting(const char* key) const {
        return support::Part<T>(Form2(), key);
    }
    void Turn() const {
        auto& tabs = *Sheet().findChild<QTabWidget*>();
        tabs.setCurrentIndex(tabs.count() - 1);
        QApplication::processEvents();
        ASSERT_TRUE(Form2().isVisible());
    }
    Set OnElement() { return gazetteer::StoredTypesetting(element_, desk_.Host().Locale()); }
    void Give(const Set& typesetting) {
        gazetteer::StoreTypesetting(desk_.Host(), element_, typesetting);
        OpenSheet();
        Turn();
    }
    /// Enters a value as the user would.
    void Enter(const TypesettingKey& key, const host::Variant& value) {
        auto& control = Setting(key.name);
        ASSERT_TRUE(control.isVisible() && control.isEnabled()) << key.name;
        control.setFocus();
        if (auto* list = qobject_cast<QComboBox*>(&control)) {
            const auto choice = QString::fromStdString(std::get<std::string>(value));
            list->setCurrentIndex(list->findData(choice));
        } else if (auto* number = qobject_cast<QSpinBox*>(&control)) {
            number->selectAll();
            QTest::keyClicks(number, QString::number(std::get<std::int32_t>(value)));
        } else if (auto* text = qobject_cast<QLineEdit*>(&control)) {
            const auto* length = std::get_if<double>(&value);
            support::Retype(*text, length ? QString::number(*length)
                                          : QString::fromStdString(std::get<std::string>(value)));
        } else {
            QTest::keyClick(&control, Qt::Key_Space);
        }
    }
};

TEST_F(Typeset, EachControlShowsAndStoresItsKeyAndNoOther) {
    for (const TypesettingKey& key : gazetteer::TypesettingKeys()) {
        if (key.writer != gazetteer::Writer::User) continue;
        for (const auto& value : OtherValues(key)) {
            Give(AllInUse());
            Typesetting expected = AllInUse();
            SetValue(key, value, desk_.Host().Locale(), expected);
            Enter(key, value);
            EXPECT_EQ(OnElement(), AllInUse()) << key.name << ": an edit alone stores nothing";
            Press(QDialogButtonBox::Apply);
            EXPECT_EQ(OnElement(), expected) << key.name;
            OpenSheet();
            EXPECT_EQ(Form2().Edited(), expected) << key.name << ", shown again";
            EXPECT_FALSE(Form2().IsPageDirty()) << key.name;
        }
    }
    EXPECT_EQ(Told(), Texts{});
}

TEST_F(Typeset, WhatHasNoEffectCannotBeEdited) {
    const auto first = [](Typesetting& set) { set.headingGroups = gazetteer::kByFirstCharacter; };
    const auto none = [](Typesetting& set) { set.continued = ""; };
    const auto plain = [](Typesetting& set) { set.leaderStyle = gazetteer::kPlainLeader; };
    const std::pair<std::function<void(Typesetting&)>, std::set<std::string>> cases[] = {
        {[](Typesetting&) {}, {}},
        {first, {"DigitsHeading"}},
        {none, {"ContinuedAt"}},
        {plain, {"LeaderDot", "LeaderBlanks", "LeaderLeast"}},
        {[](Typesetting& set) { set.leaderStyle = gazetteer::kNoLeader; },
         {"LeaderDot", "LeaderBlanks", "LeaderLeast"}}};
    for (const auto& [change, disabled] : cases) {
        Typesetting set = AllInUse();
        change(set);
        Give(set);
        for (const TypesettingKey& key : gazetteer::TypesettingKeys()) {
            if (key.writer != gazetteer::Writer::User) continue;
            EXPECT_EQ(Setting(key.name).isEnabled(), !disabled.contains(key.name)) << key.name;
        }
    }
}

TEST_F(Typeset, PlainRulesHaveNoSet) {
    Turn();
    EXPECT_FALSE(Setting("KeepHeadings").isEnabled());
    EXPECT_EQ(Form2().Edited(), std::nullopt);
    Setting<QAbstractButton>("typeset").click();
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(OnElement(), PrintTypesetting()) << "the first choice has the usual values";
    Setting<QAbstractButton>("LineGrid").click();
    Setting<QAbstractButton>("plainRules").click();
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(OnElement(), std::nullopt);
    Setting<QAbstractButton>("typeset").click();
    Typesetting edited = PrintTypesetting();
    edited.lineGrid = false;
    EXPECT_EQ(Form2().Edited(), edited) << "edits come back";
    Setting<QAbstractButton>("usualValues").click();
    Press(QDialogButtonBox::Ok);
    EXPECT_EQ(OnElement(), PrintTypesetting());
}

// What the other page stores, and the results of the last run.
TEST_F(Typeset, BothPagesKeepTheEditsOfTheOtherAndRunOnce) {
    const auto apply = [this](bool first, bool second) {
        refreshes_ = 0;
        if (first) Click("chkSortIndex");
        Turn();
        if (second) Setting<QAbstractButton>("typeset").click();
        Press(QDialogButtonBox::Apply);
        return refreshes_;
    };
    for (const auto& [first, second] : {std::pair{true, false}, {false, true}, {true, true}}) {
        Stored()->SetItem("SortColumns", true);
        gazetteer::StoreTypesetting(desk_.Host(), element_, std::nullopt);
        OpenSheet();
        const auto before = Stored();
        EXPECT_EQ(apply(first, second), 1) << first << second;
        EXPECT_EQ(Stored()->Item("SortColumns"), host::Variant(!first));
        EXPECT_EQ(OnElement().has_value(), second);
        EXPECT_NE(Stored(), before) << "a step back keeps the old set";
        EXPECT_EQ(Stored()->Item("HaveSavedListings"), host::Variant(true));
    }
    // An apply of what is stored by now runs nothing.
    refreshes_ = 0;
    CloseSheet();
    Give(OnElement());
    Setting<QAbstractButton>("LineGrid").click();
    Setting<QAbstractButton>("LineGrid").click();
    Press(QDialogButtonBox::Apply);
    EXPECT_EQ(refreshes_, 0);
    Setting<QAbstractButton>("plainRules").click();
    Press(QDialogButtonBox::Cancel);
    EXPECT_TRUE(OnElement().has_value()) << "cancelled";
}

TEST_F(Typeset, OkStopsAtAWrongLength) {
    Give(AllInUse());
    support::Retype(Setting<QLineEdit>("HangingIndent"), "wide");
    Press(QDialogButtonBox::Ok);
    EXPECT_TRUE(Setting("HangingIndent").isVisible());
    EXPECT_TRUE(Setting("HangingIndent").toolTip().contains("until then 0 is used"));
    EXPECT_EQ(OnElement(), AllInUse());
    support::Retype(Setting<QLineEdit>("HangingIndent"), "0.25");
    EXPECT_FALSE(Setting("HangingIndent").toolTip().contains("until then"));
    Press(QDialogButtonBox::Ok);
    EXPECT_EQ(OnElement()->hangingIndent, 0.25);
}

// The pages of the sample are those that the layout makes, so each setting that it acts on is seen.
TEST_F(Typeset, ThePictureShowsWhatEachSettingDoes) {
    gazetteer::SampleIndex sample(desk_.Host());
    const auto dump = [&](const Typesetting& typesetting) {
        sample.SetTypesetting(typesetting);
        std::string pages;
        for (const auto& page : sample.Pages()) pages += desk_.Dump(*page);
        return pages;
    };
    Typesetting base = PrintTypesetting();
    base.direction = gazetteer::kLeftToRight;
    const std::tuple<const char*, host::Variant> cases[] = {
        {"HeadingGroups", gazetteer::kByFirstCharacter},
        {"DigitsHeading", "0\u20139"},
        {"KeepHeadings", false},
        {"Continued", "{letter} (continued)"},
        {"BalanceLastPage", false},
        {"HangingIndent", 0.2},
        {"BreakOpportunities", false},
        {"ReferenceLine", false},
        {"LeaderStyle", gazetteer::kNoLeader},
        {"LeaderDot", "\u00B7"},
        {"LeaderBlanks", std::int32_t{2}},
        {"LeaderLeast", std::int32_t{9}},
        {"LineGrid", false},
        {"PlainHeadings", false},
        {"Direction", gazetteer::kRightToLeft},
        {"GroupReferences", true}};
    const std::string before = dump(base);
    EXPECT_NE(dump(Typesetting()), before);
    for (const auto& [name, value] : cases) {
        Typesetting changed = base;
        SetValue(*gazetteer::FindTypesettingKey(name), value, desk_.Host().Locale(), changed);
        EXPECT_NE(dump(changed), before) << name;
    }
    Typesetting continued = base;
    continued.continued = "{letter} on";
    const std::string once = dump(continued);
    continued.continuedAt = gazetteer::kAtColumnGroup;
    EXPECT_NE(dump(continued), once) << "ContinuedAt";

    sample.SetTypesetting(base);
    EXPECT_GT(sample.Places(Subject::Headings).size(), 4U);
    EXPECT_GT(sample.Places(Subject::WrappedListings).size(), 1U);
    EXPECT_GT(sample.Places(Subject::Leaders).size(), 15U);
    EXPECT_TRUE(sample.Places(Subject::Nothing).empty());
    EXPECT_TRUE(DrawnListings().empty() && redraws_ == 0 && status_.empty())
        << "nothing is seen of it elsewhere";
}

TEST_F(Typeset, ThePictureFollowsTheControlsAndMarksWhatTheyConcern) {
    Give(PrintTypesetting());
    auto& picture = Setting<gazetteer::SamplePicture>("samplePicture");
    const auto shown = [&] {
        QApplication::processEvents();
        return picture.grab().toImage();
    };
    Setting("typeset").setFocus();
    const QImage before = shown();
    Setting<QAbstractButton>("KeepHeadings").setFocus();
    EXPECT_EQ(picture.ShownSubject(), Subject::Headings);
    const QImage marked = shown();
    EXPECT_NE(marked, before);
    Setting("typeset").setFocus();
    EXPECT_EQ(shown(), before);
    Setting<QAbstractButton>("LineGrid").click();
    EXPECT_NE(shown(), before);
    Setting<QAbstractButton>("LineGrid").click();
    EXPECT_EQ(shown(), before);
    Setting<QAbstractButton>("plainRules").click();
    EXPECT_NE(shown(), before);
}

}  // namespace
}  // namespace page_test
