#include "pdf/document/Document.h"

#include <cmath>
#include <utility>

#include "pdf/document/OutputIntent.h"
#include "pdf/document/PressPage.h"
#include "pdf/file/Metadata.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

constexpr char kVersion[] = "1.7";
/// PDF/X-4 is made of PDF 1.6 (ISO 15930-7).
constexpr char kPressVersion[] = "1.6";

}  // namespace

Document::Document(Output& output, Options options)
    : options_(std::move(options)),
      press_(options_.press ? &*options_.press : nullptr),
      objects_(output, press_ ? kPressVersion : kVersion),
      colors_(objects_, press_ ? press_->profile.get() : nullptr),
      fonts_(objects_, colors_),
      bookmarks_(objects_),
      links_(objects_),
      catalog_(objects_.NewObject()),
      pageTree_(objects_.NewObject()),
      resources_(objects_.NewObject()),
      structure_(options_.tags && !press_ ? std::make_unique<StructureTree>(objects_) : nullptr) {}

PageContent& Document::BeginPage(double width, double height) {
    width_ = width;
    height_ = height;
    pages_.push_back(objects_.NewObject());
    objects_.Found().SetPage(static_cast<int>(pages_.size()));
    CheckSides();
    if (structure_) structure_->BeginPage(pages_.back());
    content_ = std::make_unique<PageContent>(objects_, fonts_, colors_, links_, structure_.get());
    return *content_;
}

void Document::EndPage(const Bookmark& page, std::span<const Bookmark> places) {
    std::string drawn = content_->Take();
    if (press_) drawn = InsideMarks(drawn, *press_, width_, height_, colors_);
    const int content = objects_.WriteStream("", drawn);
    std::string body = "<</Type/Page/Parent " + Reference(pageTree_) +
                       PageBoxes(press_, width_, height_) + "/Resources " + Reference(resources_) +
                       "/Contents " + Reference(content);
    if (const int key = structure_ ? structure_->EndPage() : -1; key >= 0)
        body += "/StructParents " + std::to_string(key);
    objects_.WriteObject(pages_.back(), body + links_.TakePage() + ">>");
    if (!page.title.empty()) bookmarks_.Add(page, places, pages_.back());
}

void Document::Finish() {
    objects_.Found().SetPage(0);
    objects_.WriteObject(resources_,
                         "<</Font<<" + fonts_.Write() + ">>" + colors_.WriteResources() + ">>");
    std::string tree = "<</Type/Pages/Count " + std::to_string(pages_.size()) + "/Kids[";
    for (const int page : pages_) tree += Reference(page) + ' ';
    objects_.WriteObject(pageTree_, tree + "]>>");
    const About about{options_.title, options_.program, ClaimsOf(),
                      press_ ? std::optional(press_->time) : std::nullopt};
    objects_.WriteObject(catalog_, Catalog(about));
    objects_.Finish(catalog_, WriteInfo(objects_, about));
    if (auto broken = Broken(); !broken.empty()) throw Violated(std::move(broken));
}

/// Returns what the file claims and does not keep to. A press asks for no characters.
std::vector<Violation> Document::Broken() {
    if (ClaimsOf() == Claims::None) return {};
    std::vector<Violation> broken = objects_.Found().Found();
    if (press_)
        std::erase_if(broken, [](const Violation& violation) {
            return violation.rule == Violation::Rule::NoCharacter;
        });
    return broken;
}

void Document::CheckSides() {
    for (const double side : {width_, height_})
        if (std::isnan(side) || side < kShortestSide || side > kLongestSide)
            objects_.Found().Add(Violation::Rule::PageSize,
                                 "a side of " + Number(side, 2) + " points is not within " +
                                     Number(kShortestSide) + " to " + Number(kLongestSide));
}

Claims Document::ClaimsOf() const {
    if (press_) return Claims::Press;
    if (!structure_) return Claims::None;
    const bool isForAccess = !options_.language.empty() && !options_.title.empty();
    return isForAccess ? Claims::ArchiveAndAccess : Claims::Archive;
}

std::string Document::Catalog(const About& about) {
    std::string catalog = "<</Type/Catalog/Pages " + Reference(pageTree_);
    if (const int outline = bookmarks_.Write(); outline != 0)
        catalog += "/Outlines " + Reference(outline);
    if (structure_)
        catalog += "/StructTreeRoot " + Reference(structure_->Write()) +
                   "/MarkInfo<</Marked true>>/ViewerPreferences<</DisplayDocTitle "
                   "true>>/OutputIntents[" +
                   Reference(WriteScreenIntent(objects_)) + ']';
    if (press_)
        catalog +=
            "/OutputIntents[" + Reference(WritePressIntent(objects_, *press_->profile)) + ']';
    catalog += "/Metadata " + Reference(WriteXmp(objects_, about));
    if (!options_.language.empty()) catalog += "/Lang" + TextString(options_.language);
    if (structure_ || options_.firstNumber != 1)
        catalog +=
            "/PageLabels<</Nums[0<</S/D/St " + std::to_string(options_.firstNumber) + ">>]>>";
    return catalog + ">>";
}

}  // namespace pdf
