#include "app/document/FindFindings.h"

#include <algorithm>

#include "app/document/Errors.h"
#include "app/document/RunTexts.h"
#include "model/Results.h"
#include "support/Conversions.h"
#include "support/Text.h"

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
            break;
    }
    return findings::kHeadingAlone;
}

// Returns where a listing that leaves the frame stands.
std::string PlaceOf(const PageFinding& found, LengthUnit unit) {
    const bool below = found.below > kRounding;
    return " stands " + LengthText(below ? found.below : found.atRight, unit) +
           (below ? " below the foot" : " beyond the right edge") + " of the frame";
}

Finding PageFinder::Make(const PageFinding& found, const char* kind) const {
    Finding finding{kind, {}, ListingOf(open_, found.rowKey), found.column, found.page};
    const std::string name = '"' + Shown(finding.listing) + '"';
    finding.text = "page " + std::to_string(found.page) + ": ";
    switch (found.kind) {
        case PageFinding::Kind::OutsideFrame:
            finding.text += "the listing " + name + PlaceOf(found, unit_) +
                            (kind == findings::kOutsideSheet ? ", off the sheet." : ".");
            break;
        case PageFinding::Kind::BrokenWord:
            finding.text += "a word of the listing " + name +
                            " is longer than a line of the column \"" + found.column +
                            "\" and is broken.";
            break;
        case PageFinding::Kind::HeadingLeftOut:
            finding.text += "the heading before the listing " + name + " found no room.";
            break;
        case PageFinding::Kind::HeadingAlone:
            finding.text += "the heading before the listing " + name + " stands alone at the foot.";
            break;
    }
    return finding;
}

void PageFinder::AddFromPages() {
    for (const PageFinding& found : manager_.FindingsOnPages()) {
        if (found.page < pages_.first || found.page > pages_.last) continue;
        const char* kind = KindOf(found);
        if (list_.Count(kind)) list_.Add(Make(found, kind));
    }
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
    for (std::size_t i = placed; i < count; ++i) {
        if (!list_.Count(findings::kNoPlace)) continue;
        Finding finding{findings::kNoPlace, {}, ListingOf(open_, rows[i])};
        finding.text =
            "the listing \"" + Shown(finding.listing) + "\" found no place on a page, " + reason;
        list_.Add(std::move(finding));
    }
}

void AddElementsOffSheet(OpenDocument& open, FindingList& list) {
    const auto& document = open.TheDesk().CurrentDocument();
    for (const auto& element : document.elements) {
        const auto geometry = element->Geometry();
        if (!geometry) continue;
        const auto box = geometry->Bounds();
        if (LiesOnSheet(document, *box) || !list.Count(findings::kOutsideSheet)) continue;
        list.Add({findings::kOutsideSheet,
                  "the element \"" + NameOf(element) + "\" lies " +
                      (TouchesSheet(document, *box) ? "partly off the sheet."
                                                    : "off the sheet and is not printed.")});
    }
}

}  // namespace

std::string ListingOf(OpenDocument& open, const std::string& rowKey) {
    const auto columns = gazetteer::NamesOf(*open.Manager().BoundSettings().columnDisplayOrder, 1);
    if (columns.empty()) return {};
    const auto cells = gazetteer::SetUnder(*open.Manager().Working().listings, columns.front());
    std::string text = gazetteer::ToText(cells->Item(rowKey), open.Host().Locale());
    for (const char* token : {gazetteer::kDotsToken, gazetteer::kLastCombineToken})
        text = gazetteer::ReplaceAll(std::move(text), token, "");
    return gazetteer::WithoutOuterBlanks(
        gazetteer::ReplaceAll(std::move(text), gazetteer::kNewLineToken, " "));
}

std::string NameOf(const host::Ref<host::IHostElement>& element) {
    const auto named = host::As<host::IHostElementName>(element);
    return named ? named->Name() : "";
}

FindingList FindFindings(OpenDocument& open, LengthUnit unit,
                         const std::optional<PageRange>& pages) {
    FindingList list;
    AddTableFindings(open, list);
    AddElementsOffSheet(open, list);
    PageFinder finder(open, pages.value_or(PageRange{1, open.PageCount()}), unit, list);
    finder.AddFromPages();
    finder.AddUnplaced();
    return list;
}

}  // namespace app
