#include "app/document/FindFindings.h"

#include <algorithm>

#include "app/document/Errors.h"
#include "app/document/ListingPlaces.h"
#include "app/document/RunTexts.h"
#include "model/Results.h"
#include "support/Conversions.h"

namespace app {
namespace {

using gazetteer::PageFinding;

constexpr double kRounding = 1e-6;  // Inches.

bool LiesOnSheet(const desk::Document& document, double left, double bottom, double right,
                 double top) {
    return left >= -kRounding && bottom >= -kRounding && right <= document.pageWidth + kRounding &&
           top <= document.pageHeight + kRounding;
}

// Makes the findings of one gazetteer from what its manager knows.
class PageFinder {
public:
    PageFinder(OpenDocument& open, const PageRange& pages, LengthUnit unit, FindingList& list)
        : open_(open), manager_(open.Manager()), pages_(pages), unit_(unit), list_(list) {}

    void AddFromPages();
    void AddUnplaced();

private:
    Finding Make(const PageFinding& found) const;
    void DescribePlace(const PageFinding& found, Finding& finding) const;

    OpenDocument& open_;
    gazetteer::CVNGazetteerManager& manager_;
    PageRange pages_;
    LengthUnit unit_;
    FindingList& list_;
};

void PageFinder::DescribePlace(const PageFinding& found, Finding& finding) const {
    const auto frame = open_.Gazetteer()->Geometry()->Bounds();
    const auto& document = open_.TheDesk().CurrentDocument();
    const bool onSheet = LiesOnSheet(document, 0, frame->YMin() - std::max(0.0, found.below),
                                     frame->XMax() + std::max(0.0, found.atRight), 0);
    finding.kind = onSheet ? findings::kOutsideFrame : findings::kOutsideSheet;
    const bool below = found.below > kRounding;
    finding.text += " stands " + LengthText(below ? found.below : found.atRight, unit_) +
                    (below ? " below the foot" : " beyond the right edge") + " of the frame" +
                    (onSheet ? "" : ", off the sheet") + '.';
}

Finding PageFinder::Make(const PageFinding& found) const {
    Finding finding{"",
                    {},
                    ListingText(open_, found.rowKey),
                    found.column,
                    found.page,
                    0,
                    found.rowKey,
                    open_.Gazetteer()};
    const std::string name = '"' + Shown(finding.listing) + '"';
    finding.text = "page " + std::to_string(found.page) + ": ";
    switch (found.kind) {
        case PageFinding::Kind::OutsideFrame:
            finding.text += "the listing " + name;
            DescribePlace(found, finding);
            break;
        case PageFinding::Kind::BrokenWord:
            finding.kind = findings::kBrokenWord;
            finding.text += "a word of the listing " + name +
                            " is longer than a line of the column \"" + found.column +
                            "\" and is broken.";
            break;
        case PageFinding::Kind::HeadingLeftOut:
            finding.kind = findings::kHeadingLeftOut;
            finding.text += "the heading before the listing " + name + " found no room.";
            break;
        case PageFinding::Kind::HeadingAlone:
            finding.kind = findings::kHeadingAlone;
            finding.text += "the heading before the listing " + name + " stands alone at the foot.";
            break;
    }
    return finding;
}

void PageFinder::AddFromPages() {
    const auto& found = manager_.FindingsOnPages();
    for (const PageFinding& one : found.Kept())
        if (pages_.first <= one.page && one.page <= pages_.last) list_.Add(Make(one));
    for (const auto& [kind, name] :
         {std::pair{PageFinding::Kind::OutsideFrame, findings::kOutsideFrame},
          {PageFinding::Kind::BrokenWord, findings::kBrokenWord},
          {PageFinding::Kind::HeadingLeftOut, findings::kHeadingLeftOut},
          {PageFinding::Kind::HeadingAlone, findings::kHeadingAlone}})
        list_.Count(name, found.Count(kind) - gazetteer::PageFindings::kKeptOfAKind);
}

// Rows are placed in their order, so that those behind the last one placed have no place.
void PageFinder::AddUnplaced() {
    const auto& results = manager_.Working();
    const auto columns = gazetteer::NamesOf(*results.listings, 1);
    if (columns.empty()) return;
    std::size_t placed = 0;
    for (const auto& page : results.pageGroups->AllItems().values)
        if (const auto rows = gazetteer::ToObject<host::IHostPropertySet>(page))
            placed += static_cast<std::size_t>(rows->Count());
    const auto cells = gazetteer::SetUnder(*results.listings, columns.front());
    const auto count = static_cast<std::size_t>(cells->Count());
    if (placed >= count) return;
    const auto rows = gazetteer::NamesOf(*cells);
    const std::string reason = NoPlaceReason(manager_);
    const std::size_t end = std::min(count, placed + gazetteer::PageFindings::kKeptOfAKind);
    for (std::size_t i = placed; i < end; ++i) {
        Finding finding{findings::kNoPlace, {}, ListingText(open_, rows[i])};
        finding.element = open_.Gazetteer();
        finding.text =
            "the listing \"" + Shown(finding.listing) + "\" found no place on a page, " + reason;
        list_.Add(std::move(finding));
    }
    list_.Count(findings::kNoPlace, static_cast<std::int64_t>(count - end));
}

}  // namespace

void AddElementsOffSheet(OpenDocument& open, FindingList& list) {
    const auto& document = open.TheDesk().CurrentDocument();
    for (const auto& element : document.elements) {
        const auto geometry = element->Geometry();
        if (!geometry) continue;
        const auto box = geometry->Bounds();
        if (LiesOnSheet(document, box->XMin(), box->YMin(), box->XMax(), box->YMax())) continue;
        const auto named = host::As<host::IHostElementName>(element);
        Finding finding{findings::kOutsideSheet, "the element \"" + (named ? named->Name() : "") +
                                                     "\" lies partly off the sheet."};
        finding.element = element;
        list.Add(std::move(finding));
    }
}

void AddGazetteerFindings(OpenDocument& open, LengthUnit unit,
                          const std::optional<PageRange>& pages, FindingList& list) {
    AddTableFindings(open, list);
    PageFinder finder(open, pages.value_or(PageRange{1, open.PageCount()}), unit, list);
    finder.AddFromPages();
    finder.AddUnplaced();
}

FindingList FindFindings(OpenDocument& open, LengthUnit unit,
                         const std::optional<PageRange>& pages) {
    FindingList list;
    AddGazetteerFindings(open, unit, pages, list);
    AddElementsOffSheet(open, list);
    AddFonts(open, list);
    return list;
}

}  // namespace app
