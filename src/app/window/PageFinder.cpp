#include "app/window/PageFinder.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "desk/window/QtText.h"
#include "model/Settings.h"

namespace app {
namespace {

// A text as it is compared.
QString Folded(const QString& text) {
    QString folded = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    folded.removeIf([](QChar c) { return c.isMark(); });
    return folded.simplified();
}

std::string TextOf(const host::Variant& value) {
    const auto* const text = std::get_if<std::string>(&value);
    return text == nullptr ? std::string() : *text;
}

// The cells of each row in one line, by row key.
std::unordered_map<std::string, QString> RowTexts(const host::IHostPropertySet& listings) {
    std::unordered_map<std::string, QString> texts;
    for (const auto& column : gazetteer::NamesOf(listings)) {
        const auto cells = gazetteer::SetUnder(listings, column)->AllItems();
        for (std::size_t i = 0; i < cells.names.size(); ++i)
            texts[cells.names[i]] += ' ' + desk::ToQt(TextOf(cells.values[i]));
    }
    for (auto& [key, text] : texts) {
        for (const char* const token :
             {gazetteer::kDotsToken, gazetteer::kNewLineToken, gazetteer::kLastCombineToken})
            text.replace(token, " ");
        text = text.simplified();
    }
    return texts;
}

}  // namespace

void PageFinder::SetResults(gazetteer::WorkingResults results) {
    results_ = std::move(results);
    listings_.clear();
    read_ = false;
}

void PageFinder::Read() {
    read_ = true;
    if (!results_.listings || !results_.pageGroups) return;
    const auto texts = RowTexts(*results_.listings);
    for (int page = 1; page <= results_.pageCount; ++page) {
        const auto group = gazetteer::SetUnder(*results_.pageGroups, std::to_string(page));
        for (const auto& key : gazetteer::NamesOf(*group)) {
            const auto text = texts.find(key);
            if (text != texts.end())
                listings_.push_back({page, text->second, Folded(text->second)});
        }
    }
}

std::vector<PageHit> PageFinder::Find(const QString& text) {
    if (!read_) Read();
    std::vector<PageHit> hits;
    const QString folded = Folded(text);
    for (const Listing& listing : listings_) {
        if (!listing.folded.contains(folded)) continue;
        if (!hits.empty() && hits.back().page == listing.page)
            ++hits.back().more;
        else
            hits.push_back({listing.page, listing.text, 0});
    }
    bool isNumber = false;
    const int page = text.trimmed().toInt(&isNumber);
    if (!isNumber || page < 1 || page > results_.pageCount) return hits;
    const auto place = std::ranges::lower_bound(hits, page, {}, &PageHit::page);
    if (place == hits.end() || place->page != page) hits.insert(place, {page, {}, 0});
    return hits;
}

}  // namespace app
