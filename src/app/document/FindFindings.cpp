#include "app/document/FindFindings.h"

#include <algorithm>
#include <iterator>

#include "app/document/Errors.h"
#include "app/document/ListingPlaces.h"
#include "app/document/ResultSources.h"
#include "app/document/RunTexts.h"
#include "model/Results.h"
#include "support/Conversions.h"

namespace app {
namespace {

using gazetteer::PageFinding;

constexpr double kRounding = 1e-6;  // Inches.

bool LiesOnSheet(const desk::Document& sheet, const host::IHostEnvelope& box) {
    return box.XMin() >= -kRounding && box.YMin() >= -kRounding &&
           box.XMax() <= sheet.pageWidth + kRounding && box.YMax() <= sheet.pageHeight + kRounding;
}

bool TouchesSheet(const desk::Document& sheet, const host::IHostEnvelope& box) {
    return box.XMax() > kRounding && box.YMax() > kRounding &&
           box.XMin() < sheet.pageWidth - kRounding && box.YMin() < sheet.pageHeight - kRounding;
}

// Makes the findings of one gazetteer from what its manager knows.
class PageFinder {
public:
    PageFinder(OpenDocument& open, const PageRange& pages, LengthUnit unit, FindingList& list)
        : open_(open),
          manager_(open.Manager()),
          pages_(pages),
          unit_(unit),
          list_(list),
          frame_(open.Gazetteer()->Geometry()->Bounds()) {}

    void AddFromPages();
    void AddUnplaced();

private:
    bool AllArePlaced() const;
    Finding Unplaced(const std::string& row, const std::string& reason) const;
    const char* KindOf(const PageFinding& found) const;
    Finding Make(const PageFinding& found, const char* kind) const;

    OpenDocument& open_;
    gazetteer::CVNGazetteerManager& manager_;
    PageRange pages_;
    LengthUnit unit_;
    FindingList& list_;
    host::Ref<host::IHostEnvelope> frame_;
};

// Rows start inside the frame, so that one can leave the sheet only at its foot or at its right.
const char* PageFinder::KindOf(const PageFinding& found) const {
    switch (found.kind) {
        case PageFinding::Kind::OutsideFrame:
            return frame_->YMin() - found.below >= -kRounding &&
                           frame_->XMax() + found.atRight <=
                               open_.TheDesk().CurrentDocument().pageWidth + kRounding
                       ? findings::kOutsideFrame
                       : findings::kOutsideSheet;
        case PageFinding::Kind::BrokenWord:
            return findings::kBrokenWord;
        case PageFinding::Kind::HeadingLeftOut:
            return findings::kHeadingLeftOut;
        case PageFinding::Kind::HeadingAlone:
            return findings::kHeadingAlone;
        case PageFinding::Kind::NotDrawn:
            break;
    }
    return findings::kNoPlace;
}

// Returns where a listing that leaves the frame stands.
std::string WhereOutside(const PageFinding& found, LengthUnit unit) {
    const bool below = found.below > kRounding;
    return " stands " + LengthText(below ? found.below : found.atRight, unit) +
           (below ? " below the foot" : " beyond the right edge") + " of the frame";
}

Finding PageFinder::Make(const PageFinding& found, const char* kind) const {
    Finding finding{{},
                    {},
                    ListingText(open_, found.rowKey),
                    found.column,
                    found.page,
                    0,
                    found.rowKey,
                    open_.Gazetteer()};
    const std::string name =
        finding.listing.empty() ? "without a text" : '"' + Shown(finding.listing) + '"';
    finding.text = "page " + std::to_string(found.page) + ": ";
    switch (found.kind) {
        case PageFinding::Kind::OutsideFrame:
            finding.text += "the listing " + name + WhereOutside(found, unit_) +
                            (kind == findings::kOutsideSheet ? ", off the sheet." : ".");
            break;
        case PageFinding::Kind::BrokenWord:
            finding.text += "a word of the column \"" + found.column + "\" in the listing " + name +
                            " is longer than a line and is broken.";
            break;
        case PageFinding::Kind::HeadingLeftOut:
            finding.text += "the heading before the listing " + name + " found no room.";
            break;
        case PageFinding::Kind::HeadingAlone:
            finding.text += "the heading before the listing " + name + " stands alone at the foot.";
            break;
        case PageFinding::Kind::NotDrawn:
            finding.text += "the listing " + name +
                            " is not printed, since the page was numbered for another frame or "
                            "other columns.";
            break;
    }
    return finding;
}

void PageFinder::AddFromPages() {
    for (const PageFinding& found : manager_.FindingsOnPages()) {
        if (found.page < pages_.first || found.page > pages_.last) continue;
        const char* kind = KindOf(found);
        list_.Add(kind, [&] { return Make(found, kind); });
    }
}

bool PageFinder::AllArePlaced() const {
    const auto& results = manager_.Working();
    std::int64_t placed = 0;
    for (const auto& page : results.pageGroups->AllItems().values)
        if (const auto rows = gazetteer::ToObject<host::IHostPropertySet>(page))
            placed += rows->Count();
    return placed == ListingCount(manager_);
}

Finding PageFinder::Unplaced(const std::string& row, const std::string& reason) const {
    Finding finding;
    finding.listing = ListingText(open_, row);
    finding.element = open_.Gazetteer();
    finding.text =
        "the listing \"" + Shown(finding.listing) + "\" found no place on a page, " + reason;
    return finding;
}

// Pages hold their listings in the order of all.
void PageFinder::AddUnplaced() {
    if (AllArePlaced()) return;
    const auto& results = manager_.Working();
    std::vector<std::string> placed;
    for (const auto& page : results.pageGroups->AllItems().values)
        if (const auto rows = gazetteer::ToObject<host::IHostPropertySet>(page))
            std::ranges::move(gazetteer::NamesOf(*rows), std::back_inserter(placed));
    const std::string reason = NoPlaceReason(manager_);
    const auto column = gazetteer::NamesOf(*results.listings, 1).front();
    auto next = placed.begin();
    for (const auto& row : gazetteer::NamesOf(*gazetteer::SetUnder(*results.listings, column))) {
        if (next != placed.end() && *next == row)
            ++next;
        else
            list_.Add(findings::kNoPlace, [&] { return Unplaced(row, reason); });
    }
}

}  // namespace

void AddElementsOffSheet(OpenDocument& open, FindingList& list) {
    const auto& document = open.TheDesk().CurrentDocument();
    const auto display = open.Host().NewApplication()->Document()->ActiveView()->Display();
    for (const auto& element : document.elements) {
        const auto geometry = element->Geometry();
        if (!geometry) continue;
        const auto box = geometry->Bounds();
        // The geometry of a text is a point.
        if (host::As<host::IHostTextElement>(element)) element->MeasureBounds(display, box);
        if (LiesOnSheet(document, *box)) continue;
        list.Add(findings::kOutsideSheet, [&] {
            Finding finding{
                {},
                "the element \"" + NameOf(element) + "\" lies " +
                    (TouchesSheet(document, *box) ? "partly off the sheet."
                                                  : "off the sheet and is not printed.")};
            finding.element = element;
            return finding;
        });
    }
}

std::string NameOf(const host::Ref<host::IHostElement>& element) {
    const auto named = host::As<host::IHostElementName>(element);
    return named ? named->Name() : "";
}

void AddGazetteerFindings(OpenDocument& open, LengthUnit unit,
                          const std::optional<PageRange>& pages, FindingList& list) {
    if (!open.Gazetteer()->Geometry()) throw CommandError(kFrameWithoutPlace);
    AddOldResults(open, list);
    AddSettingsFindings(open, unit, list);
    AddTableFindings(open, list);
    PageFinder finder(open, pages.value_or(PageRange{1, open.PageCount()}), unit, list);
    finder.AddFromPages();
    finder.AddUnplaced();
}

FindingList FindFindings(OpenDocument& open, LengthUnit unit, const std::optional<PageRange>& pages,
                         const MapPages* maps) {
    FindingList list;
    AddGazetteerFindings(open, unit, pages, list);
    AddElementsOffSheet(open, list);
    AddFonts(open, pages, list);
    if (maps) AddMapFindings(open, *maps, list);
    return list;
}

}  // namespace app
