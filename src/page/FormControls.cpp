#include "page/FormControls.h"

#include <QLineEdit>
#include <array>
#include <type_traits>

#include "page/ControlValues.h"
#include "page/NumberMark.h"
#include "page/NumberTexts.h"

namespace gazetteer {
namespace {

template <class Field>
struct Binding {
    Field field;
    const char* control;
    const char* event = "Click";
};

constexpr char kChange[] = "Change";

// Does not include the keys of the listing database, the map series link and the column lists,
// which have rules of their own.
constexpr auto ControlsOf(const Settings&) {
    return std::to_array<Binding<SettingsField>>({
        {&Settings::displayLeftToRight, "OptDisplayDirection"},
        {&Settings::sortColumns, "chkSortIndex"},
        {&Settings::sortAscending, "OptSortOrder"},
        {&Settings::repeatColumns, "chkMultipleColumnGroups"},
        {&Settings::repeatSpacing, "txtGroupSpacing", kChange},
        {&Settings::defaultPage, "txtDefaultPage", kChange},
        {&Settings::combineListings, "chkCombineListings"},
        {&Settings::combineWithNewLine, "optCombineListings"},
        {&Settings::combineDelimeter, "txtCombineDelimeter", kChange},
        {&Settings::combineFirstAndLast, "ChkCombineFirstAndLast"},
        {&Settings::clearRepeatingText, "ChkClearRepeatingText"},
        {&Settings::addStartingBreak, "ChkAddStartingBreak"},
        {&Settings::autoRefreshListings, "chkAutoRefreshListings"},
        {&Settings::samplePage, "chkSamplePage"},
    });
}

// All properties of a column except the six symbols and the version.
constexpr auto ControlsOf(const ColumnProperties&) {
    return std::to_array<Binding<ColumnField>>({
        {&ColumnProperties::fromDatabase, "optColumnSource"},
        {&ColumnProperties::expression, "txtExpression", kChange},
        {&ColumnProperties::colorBackground, "chkColumnBackground"},
        {&ColumnProperties::alternateBackground, "chkAlternateBackground"},
        {&ColumnProperties::columnWidth, "txtColumnWidth", kChange},
        {&ColumnProperties::marginTop, "txtTopMargin", kChange},
        {&ColumnProperties::marginBottom, "txtBottomMargin", kChange},
        {&ColumnProperties::marginLeft, "txtLeftMargin", kChange},
        {&ColumnProperties::marginRight, "txtRightMargin", kChange},
        {&ColumnProperties::alignment, "cmbAlignment"},
        {&ColumnProperties::breakColumn, "chkBreakColumn"},
        {&ColumnProperties::breakHeading, "chkBreakHeader"},
        {&ColumnProperties::showMissingLetters, "chkMissingHeaders"},
        {&ColumnProperties::breakSpacing, "txtBreakSpacing", kChange},
        {&ColumnProperties::title, "txtColumnTitle", kChange},
        {&ColumnProperties::showTitle, "chkDisplayTitle"},
        {&ColumnProperties::titleAlignment, "cmbTitleAlignment", kChange},
    });
}

template <class T>
constexpr bool kIsNumber = std::is_same_v<T, double> || std::is_same_v<T, std::int32_t>;

// Sets and symbols have other controls.
template <class T>
constexpr bool kIsShown = std::is_same_v<T, bool> || kIsNumber<T> || std::is_same_v<T, std::string>;

template <class T>
void FillControl(const QWidget& form, host::IHostLocale& locale, const char* control,
                 const T& value) {
    if constexpr (std::is_same_v<T, bool>)
        ShowFlag(form, control, value);
    else if constexpr (kIsNumber<T>)
        ShowText(form, control, locale.FormatNumber(value));
    else if constexpr (std::is_same_v<T, std::string>)
        ShowText(form, control, value);
}

template <class T>
T ReadControl(const QWidget& form, host::IHostLocale& locale, const char* control,
              const T& byDefault) {
    if constexpr (std::is_same_v<T, bool>)
        return ShownFlag(form, control);
    else if constexpr (kIsNumber<T>)
        return NumberIn<T>(ShownText(form, control), locale).value_or(byDefault);
    else
        return ShownText(form, control);
}

template <class T>
void MarkWrongNumbers(QWidget& form, host::IHost& host, const char* control, const T& byDefault) {
    if constexpr (kIsNumber<T>) {
        auto& box = dynamic_cast<QLineEdit&>(ControlNamed(form, control));
        const QString sentence = ToQt(RangeSentence(byDefault, host.Locale()));
        new NumberMark(box, form, sentence, NumberTest<T>(host));
    }
}

}  // namespace

template <class Record>
void FormControls<Record>::Fill(const Record& record) {
    for (const auto& binding : ControlsOf(record))
        std::visit(
            [&](auto field) { FillControl(form_, host_.Locale(), binding.control, record.*field); },
            binding.field);
}

template <class Record>
void FormControls<Record>::Read(Record& record) const {
    const Record defaults;
    for (const auto& binding : ControlsOf(record))
        std::visit(
            [&](auto field) {
                if constexpr (kIsShown<std::remove_reference_t<decltype(record.*field)>>)
                    record.*field =
                        ReadControl(form_, host_.Locale(), binding.control, defaults.*field);
            },
            binding.field);
}

template <class Record>
void FormControls<Record>::Connect(FormEvents& events, const FormEvents::Handler& handler) const {
    const Record defaults;
    for (const auto& binding : ControlsOf(defaults)) {
        events.Connect(std::string(binding.control) + '_' + binding.event, handler);
        std::visit(
            [&](auto field) { MarkWrongNumbers(form_, host_, binding.control, defaults.*field); },
            binding.field);
    }
}

template class FormControls<Settings>;
template class FormControls<ColumnProperties>;

}  // namespace gazetteer
