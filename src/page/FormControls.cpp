#include "page/FormControls.h"

#include <array>
#include <optional>
#include <type_traits>

#include "host/Failure.h"
#include "model/Keys.h"
#include "page/ControlValues.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

struct Binding {
    const char* key;
    const char* control;
};

// The keys of the listing database, of the link to a map series frame and of the column lists are
// no entries: they follow rules of their own.
constexpr std::array kGazetteerControls = {
    Binding{"DisplayLeftToRight", "OptDisplayDirection"},
    Binding{"SortColumns", "chkSortIndex"},
    Binding{"SortAscending", "OptSortOrder"},
    Binding{"RepeatColumns", "chkMultipleColumnGroups"},
    Binding{"RepeatSpacing", "txtGroupSpacing"},
    Binding{"DefaultPage", "txtDefaultPage"},
    Binding{"CombineListings", "chkCombineListings"},
    Binding{"CombineWithNewLine", "optCombineListings"},
    Binding{"CombineDelimeter", "txtCombineDelimeter"},
    Binding{"CombineFirstAndLast", "ChkCombineFirstAndLast"},
    Binding{"ClearRepeatingText", "ChkClearRepeatingText"},
    Binding{"AddStartingBreak", "ChkAddStartingBreak"},
    Binding{"AutoRefreshListings", "chkAutoRefreshListings"},
    Binding{"SamplePage", "chkSamplePage"},
};

// All keys of a column but the six symbols and the version.
constexpr std::array kColumnControls = {
    Binding{"FromDatabase", "optColumnSource"},
    Binding{"Expression", "txtExpression"},
    Binding{"ColorBackground", "chkColumnBackground"},
    Binding{"AlternateBackground", "chkAlternateBackground"},
    Binding{"ColumnWidth", "txtColumnWidth"},
    Binding{"MarginTop", "txtTopMargin"},
    Binding{"MarginBottom", "txtBottomMargin"},
    Binding{"MarginLeft", "txtLeftMargin"},
    Binding{"MarginRight", "txtRightMargin"},
    Binding{"Alignment", "cmbAlignment"},
    Binding{"BreakColumn", "chkBreakColumn"},
    Binding{"BreakHeading", "chkBreakHeader"},
    Binding{"ShowMissingLetters", "chkMissingHeaders"},
    Binding{"BreakSpacing", "txtBreakSpacing"},
    Binding{"Title", "txtColumnTitle"},
    Binding{"ShowTitle", "chkDisplayTitle"},
    Binding{"TitleAlignment", "cmbTitleAlignment"},
};

template <class T>
constexpr bool kIsNumber = std::is_same_v<T, double> || std::is_same_v<T, std::int32_t>;

// Sets and symbols have controls of their own.
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

// Nothing for a text that is no number of the type. Blanks around a number do no harm.
template <class T>
std::optional<T> NumberIn(std::string text, host::IHostLocale& locale) {
    text = WithoutOuterBlanks(text);
    const auto number = locale.ParseNumber(text);
    if (!number) return std::nullopt;
    try {
        return ValueAs<T>(*number, locale);
    } catch (const host::Failure&) {
        return std::nullopt;  // Too large: the host is not asked a second time.
    }
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

template <class Record, class Find>
void FillAll(const QWidget& form, host::IHostLocale& locale, const auto& bindings, Find find,
             const Record& record) {
    for (const Binding& binding : bindings)
        std::visit([&](auto field) { FillControl(form, locale, binding.control, record.*field); },
                   find(binding.key)->field);
}

template <class Record, class Find>
void ReadAll(const QWidget& form, host::IHostLocale& locale, const auto& bindings, Find find,
             Record& record) {
    const Record defaults;
    for (const Binding& binding : bindings)
        std::visit(
            [&](auto field) {
                using Value = std::remove_reference_t<decltype(record.*field)>;
                if constexpr (kIsShown<Value>)
                    record.*field = ReadControl(form, locale, binding.control, defaults.*field);
            },
            find(binding.key)->field);
}

}  // namespace

void FormControls::Fill(const Settings& settings) {
    FillAll(form_, locale_, kGazetteerControls, FindPropertyKey, settings);
}

void FormControls::Read(Settings& settings) const {
    ReadAll(form_, locale_, kGazetteerControls, FindPropertyKey, settings);
}

void FormControls::Fill(const ColumnProperties& column) {
    FillAll(form_, locale_, kColumnControls, FindColumnKey, column);
}

void FormControls::Read(ColumnProperties& column) const {
    ReadAll(form_, locale_, kColumnControls, FindColumnKey, column);
}

}  // namespace gazetteer
