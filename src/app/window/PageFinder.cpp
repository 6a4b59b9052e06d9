#include "app/window/PageFinder.h"

#include <algorithm>

#include "desk/window/WidgetText.h"
#include "host/Failure.h"
#include "model/Settings.h"

namespace app {
namespace {

// Normalises a text for comparison: no case, no accents, single blanks.
QString Folded(const QString& text) {
    QString folded = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    folded.removeIf([](QChar c) { return c.isMark(); });
    return folded.simplified();
}

// Removes the tokens from a stored text.
QString ShownText(const std::string& stored) {
    QString text = desk::ToQt(stored);
    if (!text.contains('$')) return text;
    for (const char* const token :
         {gazetteer::kDotsToken, gazetteer::kNewLineToken, gazetteer::kLastCombineToken})
        text.replace(token, " ");
    return text;
}

}  // namespace

void PageFinder::SetResults(const gazetteer::WorkingResults& results) {
    // After a cancelled run, the results are those before.
    if (pageGroups_ && results.pageGroups == pageGroups_) return;
    *this = {};
    if (!results.listings || !results.pageGroups) return;
    pageCount_ = results.pageCount;
    pageGroups_ = results.pageGroups;
    for (const auto& column : gazetteer::NamesOf(*results.listings))
        columns_.push_back(gazetteer::SetUnder(*results.listings, column));
}

bool PageFinder::ReadOn(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (pagesRead_ < pageCount_ && std::chrono::steady_clock::now() < end) {
        ++pagesRead_;
        try {
            ReadPage(pagesRead_);
        } catch (const host::Failure&) {
            // Listings missing from a damaged document cannot be found.
        }
    }
    return pagesRead_ < pageCount_;
}

void PageFinder::ReadPage(int page) {
    const auto group = gazetteer::SetUnder(*pageGroups_, std::to_string(page));
    for (const auto& key : gazetteer::NamesOf(*group)) {
        QString text;
        for (const auto& column : columns_) {
            const auto cell = column->Item(key);
            if (const auto* const stored = std::get_if<std::string>(&cell))
                text += ' ' + ShownText(*stored);
        }
        text = text.simplified();
        listings_.push_back({page, text, Folded(text), key});
    }
}

std::vector<PageHit> PageFinder::Find(const QString& text) const {
    std::vector<PageHit> hits;
    const QString folded = Folded(text);
    for (const Listing& listing : listings_)
        if (listing.folded.contains(folded))
            hits.push_back({listing.page, listing.text, listing.rowKey});
    bool isNumber = false;
    const int page = text.trimmed().toInt(&isNumber);
    if (!isNumber || page < 1 || page > pageCount_) return hits;
    const auto place = std::ranges::lower_bound(hits, page, {}, &PageHit::page);
    if (place == hits.end() || place->page != page) hits.insert(place, {page, {}, {}});
    return hits;
}

}  // namespace app
