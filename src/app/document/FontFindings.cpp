#include <algorithm>
#include <charconv>
#include <map>
#include <vector>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "app/document/RunTexts.h"
#include "desk/unicode/Utf8.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"

namespace app {
namespace {

namespace keys = gazetteer::keys;

std::string Quoted(const std::string& text) {
    return '"' + Shown(text) + '"';
}

bool Holds(std::string_view text, char32_t character) {
    for (std::size_t at = 0; at < text.size();)
        if (desk::NextCodePoint(text, at) == character) return true;
    return false;
}

// Finds what the gazetteer prints where.
class PrintedTexts {
public:
    explicit PrintedTexts(OpenDocument& open)
        : open_(open),
          settings_(open.Manager().BoundSettings()),
          columns_(gazetteer::NamesOf(*settings_.columnDisplayOrder)) {}

    /// Completes a finding with the first use of a font. Adds " in the column ..." to its text.
    void LocateFont(const std::string& family, Finding& finding) const;

    /// A missing character with the place where it is printed first.
    struct Missing {
        bool elsewhere = false;  ///< Is on another page.
        std::string rowKey;      ///< Empty: in no listing of the pages.
        std::string column;
        std::int32_t page = 0;
    };
    using AllMissing = std::map<char32_t, Missing>;
    void LocateInListings(const PageRange& pages, AllMissing& missing) const;
    /// Returns the column whose title holds the character; empty if there is none.
    std::string TitledWith(char32_t character) const;

private:
    host::Variant Value(const std::string& column, const char* key) const {
        return gazetteer::SetUnder(*settings_.columnsProperties, column)->Item(key);
    }
    void LookAt(const std::string& text, const Missing& place, bool asked,
                AllMissing& missing) const;

    OpenDocument& open_;
    const gazetteer::Settings& settings_;
    std::vector<std::string> columns_;
};

void PrintedTexts::LocateFont(const std::string& family, Finding& finding) const {
    const auto isOf = [&](const host::Ref<host::IHostTextSymbol>& symbol) {
        return symbol && symbol->Font()->Name() == family;
    };
    for (const auto& [key, part] : {std::pair{keys::kColumnFontSymbol, " in the column "},
                                    {keys::kTitleFontSymbol, " in the title of the column "},
                                    {keys::kBreakFontSymbol, " in the headings of the column "}})
        for (const auto& column : columns_)
            if (isOf(gazetteer::ToObject<host::IHostTextSymbol>(Value(column, key)))) {
                finding.column = column;
                finding.text += part + Quoted(column);
                return;
            }
    for (const auto& element : open_.TheDesk().CurrentDocument().elements) {
        const auto text = host::As<host::IHostTextElement>(element);
        if (!text || !isOf(text->Symbol())) continue;
        finding.text += " in the element " + Quoted(NameOf(element));
        return;
    }
}

void PrintedTexts::LookAt(const std::string& text, const Missing& place, bool asked,
                          AllMissing& missing) const {
    for (std::size_t at = 0; at < text.size();) {
        const auto found = missing.find(desk::NextCodePoint(text, at));
        if (found == missing.end() || !found->second.rowKey.empty()) continue;
        if (asked)
            found->second = place;
        else
            found->second.elsewhere = true;
    }
}

void PrintedTexts::LocateInListings(const PageRange& pages, AllMissing& missing) const {
    const auto& results = open_.Manager().Working();
    const auto groups = results.pageGroups->AllItems();
    for (std::size_t i = 0; i < groups.names.size(); ++i) {
        const auto rows = gazetteer::ToObject<host::IHostPropertySet>(groups.values[i]);
        if (!rows) continue;
        const auto page = static_cast<std::int32_t>(i + 1);
        for (const auto& row : gazetteer::NamesOf(*rows))
            for (const auto& column : columns_) {
                const auto value = gazetteer::SetUnder(*results.listings, column)->Item(row);
                LookAt(gazetteer::ToText(value, open_.Host().Locale()), {false, row, column, page},
                       pages.first <= page && page <= pages.last, missing);
            }
    }
}

std::string PrintedTexts::TitledWith(char32_t character) const {
    for (const auto& column : columns_)
        if (gazetteer::ToBoolean(Value(column, keys::kShowTitle)) &&
            Holds(gazetteer::ToText(Value(column, keys::kTitle), open_.Host().Locale()), character))
            return column;
    return {};
}

// Row keys count the records that can be read, from 1. A record is told only if it holds the
// character, which may come from another one with which it was combined, or from an expression.
void AddRecords(OpenDocument& open,
                std::multimap<std::int64_t, std::pair<char32_t, Finding*>> wanted) {
    const auto table = open.Manager().DatabaseTable();
    if (!table || wanted.empty()) return;
    const auto rows = table->Search(open.Host().NewQueryFilter(), true);
    const std::int32_t fields = table->Fields()->FieldCount();
    std::int64_t number = 0;
    for (auto row = rows->NextRow(); row && !wanted.empty(); row = rows->NextRow()) {
        ++number;
        for (; !wanted.empty() && wanted.begin()->first <= number; wanted.erase(wanted.begin())) {
            const auto& [character, finding] = wanted.begin()->second;
            for (std::int32_t i = 0; i < fields; ++i) {
                const auto value = row->Value(i);
                const auto* const text = std::get_if<std::string>(&value);
                if (text && Holds(*text, character)) finding->record = row->OID();
            }
        }
    }
}

std::int64_t RowNumber(const std::string& rowKey) {
    std::int64_t number = 0;
    std::from_chars(rowKey.data(), rowKey.data() + rowKey.size(), number);
    return number;
}

void Describe(char32_t character, Finding& finding) {
    if (finding.page > 0) finding.text = "page " + std::to_string(finding.page) + ": ";
    finding.text += "no installed font has the character " + CodePoint(character);
    if (finding.page > 0)
        finding.text += " of the listing " + Quoted(finding.listing);
    else if (!finding.column.empty())
        finding.text += " of the title of the column " + Quoted(finding.column);
    if (finding.record > 0) finding.text += " (record " + std::to_string(finding.record) + ')';
    finding.text += "; a box is printed instead.";
}

void AddCharacters(OpenDocument& open, const PageRange& pages, FindingList& list) {
    PrintedTexts::AllMissing missing;
    for (const char32_t character : open.TheDesk().Text()->MissingCharacters())
        missing[character] = {};
    if (missing.empty()) return;
    const PrintedTexts texts(open);
    texts.LocateInListings(pages, missing);
    std::vector<std::pair<char32_t, Finding>> found;
    for (const auto& [character, place] : missing) {
        if (place.rowKey.empty() && place.elsewhere) continue;
        if (!list.Count(findings::kMissingCharacter)) continue;
        Finding finding{findings::kMissingCharacter, {}, {}, place.column, place.page};
        if (place.rowKey.empty())
            finding.column = texts.TitledWith(character);
        else
            finding.listing = ListingOf(open, place.rowKey);
        found.emplace_back(character, std::move(finding));
    }
    std::multimap<std::int64_t, std::pair<char32_t, Finding*>> wanted;
    for (auto& [character, finding] : found)
        if (const auto& row = missing[character].rowKey; !row.empty())
            wanted.emplace(RowNumber(row), std::pair(character, &finding));
    AddRecords(open, std::move(wanted));
    for (auto& [character, finding] : found) {
        Describe(character, finding);
        list.Add(std::move(finding));
    }
}

}  // namespace

void AddFonts(OpenDocument& open, const PageRange& pages, FindingList& list) {
    const auto& engine = *open.TheDesk().Text();
    const auto fonts = engine.Substitutions();
    const auto warnings = FontWarnings(engine);
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        if (!list.Count(findings::kMissingFont)) continue;
        Finding finding{findings::kMissingFont, warnings[i]};
        finding.text.pop_back();  // The full stop, which comes after the place.
        PrintedTexts(open).LocateFont(fonts[i].wanted, finding);
        finding.text += '.';
        list.Add(std::move(finding));
    }
    AddCharacters(open, pages, list);
}

}  // namespace app
