#include <map>
#include <optional>

#include "app/document/FindFindings.h"
#include "app/document/ListingPlaces.h"
#include "app/document/RunTexts.h"
#include "desk/unicode/Utf8.h"
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
    explicit PrintedTexts(OpenDocument& open) : open_(open) {}

    void ReadAll();
    // The first place that prints in a family.
    const Finding* PlaceOfFamily(const std::string& family) const;
    // The first place of each of these characters.
    std::map<char32_t, Finding> PlacesOf(const std::set<char32_t>& characters) const;

private:
    using Text = std::pair<std::string, Finding>;

    void ReadElement(const Ref<host::IHostElement>& element);
    void ReadColumn(const gazetteer::ColumnProperties& column, const Finding& place);
    void Read(const Ref<host::IHostTextSymbol>& symbol, const std::string& text,
              const Finding& place);
    static void Look(const std::string& text, const Finding& place,
                     const std::set<char32_t>& characters, std::map<char32_t, Finding>& found);
    void LookInListings(const gazetteer::CVNGazetteerManager& manager,
                        const Ref<host::IHostElement>& element,
                        const std::set<char32_t>& characters,
                        std::map<char32_t, Finding>& found) const;

    OpenDocument& open_;
    std::map<std::string, Finding> families_;
    std::vector<Text> texts_;
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
    }
    for (const auto& element : open_.TheDesk().CurrentDocument().elements) ReadElement(element);
    for (const auto& frame : open_.Frames())
        if (frame.manager->BoundSettings().samplePage) {
            Finding place;
            place.element = frame.element;
            Read(gazetteer::SampleLabelSymbol(open_.Host()), gazetteer::kSampleLabel, place);
        }
}

void PrintedTexts::ReadElement(const Ref<host::IHostElement>& element) {
    const auto text = host::As<host::IHostTextElement>(element);
    if (!text) return;
    Finding place;
    place.element = element;
    Read(text->Symbol(), text->Text(), place);
}

void PrintedTexts::ReadColumn(const gazetteer::ColumnProperties& column, const Finding& place) {
    Read(column.columnFontSymbol, {}, place);
    if (column.showTitle) Read(column.titleFontSymbol, column.title, place);
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

void PrintedTexts::Look(const std::string& text, const Finding& place,
                        const std::set<char32_t>& characters, std::map<char32_t, Finding>& found) {
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = desk::NextCodePoint(text, at);
        if (character >= 0x80 && characters.contains(character))
            found.try_emplace(character, place);
    }
}

void PrintedTexts::LookInListings(const gazetteer::CVNGazetteerManager& manager,
                                  const Ref<host::IHostElement>& element,
                                  const std::set<char32_t>& characters,
                                  std::map<char32_t, Finding>& found) const {
    const auto& listings = manager.Working().listings;
    if (!listings) return;
    for (const auto& column : gazetteer::NamesOf(*listings)) {
        const auto cells = gazetteer::SetUnder(*listings, column)->AllItems();
        for (std::size_t i = 0; i < cells.names.size(); ++i) {
            const auto* const text = std::get_if<std::string>(&cells.values[i]);
            if (text == nullptr) continue;
            Finding place;
            place.column = column;
            place.row = cells.names[i];
            place.element = element;
            Look(*text, place, characters, found);
        }
    }
}

std::map<char32_t, Finding> PrintedTexts::PlacesOf(const std::set<char32_t>& characters) const {
    std::map<char32_t, Finding> found;
    if (characters.empty()) return found;
    for (const auto& frame : open_.Frames())
        LookInListings(*frame.manager, frame.element, characters, found);
    for (const auto& [text, place] : texts_) Look(text, place, characters, found);
    return found;
}

}  // namespace

void AddFonts(OpenDocument& open, FindingList& list) {
    const auto& engine = *open.TheDesk().Text();
    PrintedTexts texts(open);
    texts.ReadAll();
    const auto add = [&](Finding place, const char* kind, const std::string& text) {
        place.kind = kind;
        place.text = text;
        list.Add(std::move(place));
    };
    for (const auto& font : engine.Substitutions())
        if (const auto* const place = texts.PlaceOfFamily(font.wanted))
            add(*place, findings::kMissingFont, FontWarning(font));
    for (const auto& [character, place] : texts.PlacesOf(engine.MissingCharacters()))
        add(place, findings::kMissingCharacter,
            "no installed font has the character " + CodePoint(character) +
                "; a box is printed instead.");
}

}  // namespace app
