#include <map>
#include <optional>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "app/document/ListingPlaces.h"
#include "app/document/RunTexts.h"
#include "characters/Utf8.h"
#include "layout/PageDrawing.h"
#include "model/ColumnProperties.h"
#include "support/Conversions.h"

namespace app {
namespace {

using host::Ref;

// What a document prints in which fonts. The engine knows all fonts and characters that are
// missing, but also those of earlier documents and settings.
class PrintedTexts {
public:
    PrintedTexts(OpenDocument& open, const std::optional<PageRange>& pages)
        : open_(open), pages_(pages) {}

    void ReadAll();
    // The first place that prints in a family. The text of a place names it.
    const Finding* PlaceOfFamily(const std::string& family) const;
    // The first place of each of these characters.
    std::map<char32_t, Finding> PlacesOf(const std::set<char32_t>& characters) const;

private:
    void ReadElement(const Ref<host::IHostElement>& element);
    void ReadColumn(const gazetteer::ColumnProperties& column, Finding place);
    void Read(const Ref<host::IHostTextSymbol>& symbol, const std::string& text,
              const Finding& place);
    void LookInListings(const GazetteerFrame& frame, const std::set<char32_t>& characters,
                        std::map<char32_t, Finding>& found) const;

    OpenDocument& open_;
    const std::optional<PageRange>& pages_;
    std::map<std::string, Finding> families_;
    std::vector<std::pair<std::string, Finding>> texts_;
};

void PrintedTexts::ReadAll() {
    for (const auto& frame : open_.Frames()) {
        const auto& settings = frame.manager->BoundSettings();
        if (!settings.columnsProperties || !settings.columnDisplayOrder) continue;
        for (const auto& name : gazetteer::NamesOf(*settings.columnDisplayOrder)) try {
                Finding place;
                place.column = name;
                place.element = frame.element;
                const auto set = gazetteer::SetUnder(*settings.columnsProperties, name);
                ReadColumn(gazetteer::ReadColumnProperties(*set, open_.Host().Locale()), place);
            } catch (const host::Failure&) {
                // That a column is damaged is the reason why nothing can be drawn.
            }
        Finding place{{}, "the label of a sample page"};
        place.element = frame.element;
        if (settings.samplePage)
            Read(gazetteer::SampleLabelSymbol(open_.Host()), gazetteer::kSampleLabel, place);
    }
    for (const auto& element : open_.TheDesk().CurrentDocument().elements) ReadElement(element);
}

void PrintedTexts::ReadElement(const Ref<host::IHostElement>& element) {
    const auto text = host::As<host::IHostTextElement>(element);
    if (!text) return;
    Finding place{{}, "the element \"" + Shown(NameOf(element)) + '"'};
    place.element = element;
    Read(text->Symbol(), text->Text(), place);
}

void PrintedTexts::ReadColumn(const gazetteer::ColumnProperties& column, Finding place) {
    const std::string name = "the column \"" + Shown(place.column) + '"';
    place.text = name;
    Read(column.columnFontSymbol, {}, place);
    place.text = "the title of " + name;
    if (column.showTitle) Read(column.titleFontSymbol, column.title, place);
    place.text = "the headings of " + name;
    if (column.breakColumn && column.breakHeading) Read(column.breakFontSymbol, {}, place);
}

// Measuring makes the engine know the font and the characters.
void PrintedTexts::Read(const Ref<host::IHostTextSymbol>& symbol, const std::string& text,
                        const Finding& place) {
    if (!symbol || !symbol->Font()) return;
    symbol->MeasureText(0, nullptr, text);
    families_.try_emplace(symbol->Font()->Name(), place);
    texts_.emplace_back(text, place);
}

const Finding* PrintedTexts::PlaceOfFamily(const std::string& family) const {
    const auto place = families_.find(family);
    return place != families_.end() ? &place->second : nullptr;
}

// Calls take with each of the characters that stands in the text.
template <class Take>
void Look(const std::string& text, const std::set<char32_t>& characters, const Take& take) {
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = characters::NextCodePoint(text, at);
        if (character >= 0x80 && characters.contains(character)) take(character);
    }
}

void PrintedTexts::LookInListings(const GazetteerFrame& frame, const std::set<char32_t>& characters,
                                  std::map<char32_t, Finding>& found) const {
    const auto& results = frame.manager->Working();
    if (!results.listings || !results.pageGroups) return;
    const bool chosen = frame.element == open_.Gazetteer();
    const auto columns = gazetteer::NamesOf(*results.listings);
    const auto pages = results.pageGroups->AllItems();
    for (std::size_t i = 0; i < pages.names.size(); ++i) {
        const auto page = static_cast<std::int32_t>(i + 1);
        const auto rows = gazetteer::ToObject<host::IHostPropertySet>(pages.values[i]);
        if (!rows || (chosen && pages_ && (page < pages_->first || page > pages_->last))) continue;
        for (const auto& row : gazetteer::NamesOf(*rows))
            for (const auto& column : columns) {
                const auto value = gazetteer::SetUnder(*results.listings, column)->Item(row);
                const auto* const text = std::get_if<std::string>(&value);
                if (text == nullptr) continue;
                Look(*text, characters, [&](char32_t character) {
                    found.try_emplace(character,
                                      Finding{{}, {}, {}, column, page, 0, row, frame.element});
                });
            }
    }
}

std::map<char32_t, Finding> PrintedTexts::PlacesOf(const std::set<char32_t>& characters) const {
    std::map<char32_t, Finding> found;
    if (characters.empty()) return found;
    for (const auto& frame : open_.Frames()) LookInListings(frame, characters, found);
    for (const auto& [text, place] : texts_)
        Look(text, characters,
             [&, &from = place](char32_t character) { found.try_emplace(character, from); });
    return found;
}

Finding CharacterFinding(OpenDocument& open, char32_t character, Finding place) {
    if (!place.row.empty() && place.element == open.Gazetteer()) {
        place.listing = ListingText(open, place.row);
        place.text = "the listing \"" + Shown(place.listing) + '"';
    } else if (!place.row.empty()) {
        place.text = "the column \"" + Shown(place.column) + '"';
    }
    place.text = (place.page > 0 ? "page " + std::to_string(place.page) + ": " : "") +
                 "no installed font has the character " + CodePoint(character) + " of " +
                 place.text + "; a box is printed instead.";
    return place;
}

}  // namespace

void AddFonts(OpenDocument& open, const std::optional<PageRange>& pages, FindingList& list) {
    const auto& engine = *open.TheDesk().Text();
    PrintedTexts texts(open, pages);
    texts.ReadAll();
    for (const auto& font : engine.Substitutions()) {
        const auto* const place = texts.PlaceOfFamily(font.wanted);
        if (!place) continue;
        list.Add(findings::kMissingFont, [&] {
            Finding finding = *place;
            finding.text = FontWarning(font, place->text);
            return finding;
        });
    }
    for (const auto& [character, place] : texts.PlacesOf(engine.MissingCharacters()))
        list.Add(findings::kMissingCharacter,
                 [&, &at = place, is = character] { return CharacterFinding(open, is, at); });
}

}  // namespace app
