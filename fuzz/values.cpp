// Texts of the command line, one per line and in UTF-8: settings, sizes, frames, pages, locales,
// numbers and column names. Accepted values must be in the document, which is saved and read again.

#include <array>
#include <cstdint>

#include "Bytes.h"
#include "Checks.h"
#include "FuzzDesk.h"
#include "UnicodeText.h"
#include "app/document/Errors.h"
#include "app/document/NewDocument.h"
#include "app/document/OpenDocument.h"
#include "app/document/SettingsEdit.h"
#include "app/document/Sheets.h"
#include "desk/locale/IcuLocale.h"
#include "model/EditRules.h"
#include "model/Keys.h"

namespace {

using fuzz::Require;

constexpr int kMostLines = 40;

class QuietDialogs final : public host::IHostDialogs {
public:
    host::MessageAnswer MessageBox(const host::MessageBoxRequest&) override {
        return host::MessageAnswer::Yes;
    }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return std::nullopt;
    }
    void Beep() override {}
};

app::OpenDocument NewWork() {
    desk::DeskOptions options;
    options.locale = "en_US";
    options.dialogs = std::make_shared<QuietDialogs>();
    return {options, [](const std::string& sentence) { fuzz::RequireText(sentence, "a caution"); }};
}

/// Like Attempt, but also allows the command line's two exceptions, whose texts repeat the input.
template <class Action>
bool AttemptCommand(Action&& action) {
    try {
        return fuzz::Attempt(action);
    } catch (const app::UsageError& error) {
        Require(*error.what() != '\0', "a usage error without a text");
    } catch (const app::CommandError& error) {
        Require(*error.what() != '\0', "an error of a command without a text");
    }
    return false;
}

/// Requires that a value's text parses to the same value.
void RequireSameAgain(host::IHost& host, const std::string& key, gazetteer::ValueKind kind,
                      const std::string& text) {
    const auto value = app::ValueText(app::ParseValue(host, key, kind, text));
    Require(app::ValueText(app::ParseValue(host, key, kind, value)) == value,
            "a value's text leads to another value");
}

void Set(app::OpenDocument& work, app::SettingsEdit& edit, const std::string& text) {
    if (!AttemptCommand([&] { edit.Set(text); })) return;
    const auto assignment = app::ParseAssignment(text);
    const auto* property = gazetteer::FindPropertyKey(assignment.key);
    const auto* column = gazetteer::FindColumnKey(assignment.key);
    const bool ofColumn = !assignment.column.empty();
    Require(ofColumn ? column != nullptr : property != nullptr, "a key that is not there is set");
    RequireSameAgain(work.Host(), assignment.key, ofColumn ? column->kind : property->kind,
                     assignment.value);
}

void AddColumn(app::OpenDocument& work, app::SettingsEdit& edit, const std::string& text) {
    auto& locale = work.Host().Locale();
    const std::string name = gazetteer::CleanColumnName(locale, text);
    auto& settings = edit.Settings();
    if (name.empty() || !gazetteer::FindColumn(locale, settings, name).empty()) return;
    edit.AddColumn(name);
    Require(gazetteer::FindColumn(locale, settings, name) == name, "a new column is not found");
}

void Number(const std::string& text) {
    static std::array<desk::IcuLocale, 4> locales = {
        desk::IcuLocale("en_US"), desk::IcuLocale("de"), desk::IcuLocale("ar_EG"),
        desk::IcuLocale("hi")};
    for (auto& locale : locales) {
        const auto number = locale.ParseNumber(text);
        if (number)
            Require(locale.ParseNumber(locale.FormatNumber(*number)) == number,
                    "a number's text is another number");
    }
}

void Locale(const std::string& name) {
    AttemptCommand([&] {
        desk::IcuLocale locale(name);
        Require(locale.CompareText("a", "b") < 0, "a does not stand before b");
        locale.FormatNumber(1234.5);
    });
}

void Size(const std::string& text, app::PageSize& size) {
    AttemptCommand([&] { size = app::ParsePageSize(text); });
    Require(size.width > 0 && size.height > 0, "a sheet without a size");
}

void Frame(const std::string& text, const app::PageSize& size) {
    AttemptCommand([&] {
        const auto frame = app::ParseFrame(text, size);
        Require(frame.width > 0 && frame.height > 0, "a frame without a size");
    });
}

void Pages(const std::string& text) {
    AttemptCommand([&] {
        const auto pages = app::ParsePages(text);
        Require(!pages || (pages->first >= 1 && pages->first <= pages->last), "no range of pages");
    });
}

void TakeLines(app::OpenDocument& work, app::SettingsEdit& edit, fuzz::Bytes& bytes) {
    app::PageSize size{8.5, 11};
    for (int i = 0; i < kMostLines && !bytes.AtEnd(); ++i) {
        // An argument is UTF-8 and ends at its first zero byte.
        const std::string whole = fuzz::Repaired(bytes.Line());
        const std::string line = whole.substr(0, whole.find('\0'));
        const auto blank = std::min(line.find(' '), line.size());
        const std::string word = line.substr(0, blank);
        const std::string text = line.substr(std::min(blank + 1, line.size()));
        if (word == "set") Set(work, edit, text);
        if (word == "column") AddColumn(work, edit, text);
        if (word == "number") Number(text);
        if (word == "locale") Locale(text);
        if (word == "size") Size(text, size);
        if (word == "frame") Frame(text, size);
        if (word == "pages") Pages(text);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Folder folder;
    static app::OpenDocument work = NewWork();
    app::NewDocumentOptions options;
    options.listingDatabase = folder.Write("names.dbf", fuzz::SmallTable());
    const std::string path = folder.File("document.json");
    app::StartNewDocument(work, options, path);

    fuzz::Bytes bytes(data, size);
    app::SettingsEdit edit(work);
    TakeLines(work, edit, bytes);
    edit.Store();
    const bool saved = fuzz::Attempt([&] {
        work.Save();
        desk::ReadDocument(path, work.TheDesk().Text());
    });
    Require(saved, "a document cannot be saved and read with the values that were set");
    return 0;
}
