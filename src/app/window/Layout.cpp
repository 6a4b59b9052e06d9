#include "app/window/Layout.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/work/Errors.h"
#include "app/work/FilePaths.h"
#include "app/work/NewDocument.h"
#include "app/work/RunTexts.h"
#include "support/Conversions.h"

namespace app {
namespace {

host::IHostFrameElement& StateOf(const host::Ref<host::IHostGroupElement>& element) {
    return *host::As<host::IHostFrameElement>(element);
}

}  // namespace

Layout::Layout(desk::DeskOptions options, std::shared_ptr<NotedDialogs> dialogs)
    : Work(std::move(options), std::move(dialogs)) {}

void Layout::Open(const std::string& path) {
    TheDesk().Open(path);
    notices_.clear();
    TakeDocument(true);
}

void Layout::StartNew(const NewDocumentOptions& options, bool dressed) {
    const desk::Document documentBefore = TheDesk().CurrentDocument();
    const std::string pathBefore = Path();
    const auto replaceableBefore = TheDesk().Replaceable();
    const std::vector<Notice> noticesBefore = std::exchange(notices_, {});
    try {
        const auto place = std::filesystem::path(FullPath(options.listingDatabase));
        StartNewDocument(*this, options, std::filesystem::path(place).replace_extension(".json"));
        if (dressed) DressForPrint(*this);
    } catch (...) {
        TheDesk().Start(documentBefore, pathBefore);
        TheDesk().SetReplaceable(replaceableBefore);
        notices_ = noticesBefore;
        UseChosen();
        throw;
    }
    TakeDocument(false);
}

void Layout::TakeDocument(bool onDisk) {
    fontsTold_ = TheDesk().Text()->Substitutions().size();
    hasDocument_ = true;
    onDisk_ = onDisk;
    modified_ = !onDisk;
    frames_.clear();
    chosen_ = 0;
    // What was told while the document was made stays on show.
    const auto told = notices_;
    Refresh();
    notices_.insert(notices_.begin(), told.begin(), told.end());
}

void Layout::SaveTo(const std::string& documentPath) {
    desk::Document document = TheDesk().CurrentDocument();
    if (documentPath != Path()) {
        const std::string mapBook = desk::MapBookPath(document, Path());
        if (!mapBook.empty()) document.mapBook = desk::PathFromDocument(mapBook, documentPath);
    }
    const auto written = desk::WriteDocument(document, documentPath);
    if (documentPath != Path()) TheDesk().Start(std::move(document), documentPath);
    TheDesk().SetReplaceable(written);
    NoteSaved();
}

void Layout::Save() {
    TheDesk().Save();
    NoteSaved();
}

void Layout::NoteSaved() {
    onDisk_ = true;
    modified_ = false;
}

bool Layout::Needs(const std::string& path) {
    const auto& document = TheDesk().CurrentDocument();
    if (IsSameFile(path, desk::MapBookPath(document, Path()))) return true;
    return std::ranges::any_of(frames_, [&](const Frame& frame) {
        return IsSameFile(path, frame.manager->BoundSettings().indexDatabaseFile);
    });
}

void Layout::Refresh() {
    notices_.clear();
    summary_.clear();
    FindFrames();
    if (hasDocument_ && frames_.empty())
        notices_.push_back({Notice::Kind::Warning, "The document has no gazetteer frame."});
    for (Frame& frame : frames_) {
        Bind(frame);
        TellOf(frame);
        Draw(frame);
    }
    TellOfFonts();
    UseChosen();
}

// The gazetteer frames of the document; those known already keep their page.
void Layout::FindFrames() {
    const auto known = std::exchange(frames_, {});
    const auto asked = NewManager();
    for (const auto& element : TheDesk().CurrentDocument().elements) {
        const auto group = host::As<host::IHostGroupElement>(element);
        if (!group || !asked->IsGazetteerElement(group)) continue;
        const auto before = std::ranges::find(known, group, &Frame::element);
        frames_.push_back({group, nullptr, before == known.end() ? 0 : before->page});
    }
    if (chosen_ >= frames_.size()) chosen_ = 0;
}

void Layout::Bind(Frame& frame) {
    frame.manager = NewManager();
    frame.manager->SetIndexElement(frame.element);
    if (frame.page == 0) frame.page = frame.manager->BoundSettings().defaultPage;
    frame.page = std::clamp(frame.page, 1, std::max(1, frame.manager->Working().pageCount));
}

bool Layout::Drawable(const Frame& frame) const {
    return frame.manager->CanDraw() && frame.manager->Working().pageCount > 0;
}

void Layout::Draw(Frame& frame) {
    if (!Drawable(frame) || StateOf(frame.element).Draft()) return;
    Use(frame.element, frame.manager);
    frame.manager->SetIndexToPageNumber(frame.page);
    try {
        LabelSheet(*this, frame.page);
    } catch (const std::exception&) {
        Caution(CurrentSentence());
    }
}

void Layout::TellOf(const Frame& frame) {
    const auto& manager = *frame.manager;
    const auto warn = [&](std::string text) {
        notices_.push_back({Notice::Kind::Warning, std::move(text)});
    };
    summary_ += (summary_.empty() ? "" : " ") +
                (manager.HasRun() ? RunSummary(manager) : StoredSummary(manager));
    if (manager.HasRun()) {
        for (auto& warning : RunWarnings(manager)) warn(warning);
    }
    if (!manager.CanDraw()) {
        std::string reasons = "The gazetteer cannot be drawn.";
        for (const auto& finding : manager.LastFindings()) reasons += ' ' + finding;
        warn(reasons);
    } else if (manager.Working().pageCount == 0) {
        warn(NoPageReason(manager));
    }
}

void Layout::TellOfFonts() {
    const auto warnings = FontWarnings(*TheDesk().Text());
    for (std::size_t i = fontsTold_; i < warnings.size(); ++i)
        notices_.push_back({Notice::Kind::Warning, warnings[i]});
}

void Layout::UseChosen() {
    if (const Frame* const frame = Chosen())
        Use(frame->element, frame->manager);
    else
        Use(nullptr, NewManager());
}

std::int32_t Layout::Pages() const {
    const Frame* const frame = Chosen();
    return frame != nullptr && Drawable(*frame) ? frame->manager->Working().pageCount : 0;
}

std::int32_t Layout::Page() const {
    return Pages() == 0 ? 0 : Chosen()->page;
}

void Layout::TurnTo(std::int32_t page) {
    Frame* const frame = Chosen();
    if (page < 1 || page > Pages()) return;
    frame->page = page;
    Draw(*frame);
}

// A name that is missing in a damaged document is no reason for a message in the midst of a list.
std::string Layout::PageName(std::int32_t page) {
    const auto quiet = Dialogs().Silence();
    return gazetteer::ToText(Manager().PageName(page), Host().Locale());
}

bool Layout::InDraft() const {
    const Frame* const frame = Chosen();
    return frame != nullptr && StateOf(frame->element).Draft();
}

void Layout::SetDraft(bool draft) {
    Frame* const frame = Chosen();
    if (frame == nullptr || InDraft() == draft) return;
    modified_ = true;
    if (draft) frame->manager->DraftMode();
    StateOf(frame->element).SetDraft(draft);
    if (!draft) Refresh();
}

void Layout::Export(const std::string& path, const PageRange& pages, const SheetListener& before) {
    const bool draft = InDraft();
    // Only what goes wrong from here on is to end the export.
    Dialogs().TakeFailureShown();
    try {
        WriteSheets(*this, path, pages, before);
    } catch (...) {
        ShowAgain(draft);
        throw;
    }
    ShowAgain(draft);
}

// What was on show before pages were drawn for something else.
void Layout::ShowAgain(bool draft) {
    Frame& frame = *Chosen();
    if (!draft) return Draw(frame);
    frame.manager->DraftMode();
    StateOf(frame.element).SetDraft(true);
}

host::Ref<host::IHostEnvelope> Layout::BoundsOf(const host::Ref<host::IHostElement>& element) {
    // Members of a group may stick out of its frame.
    if (host::As<host::IHostGroupElement>(element) && element->Geometry())
        return element->Geometry()->Bounds();
    auto bounds = Host().NewEnvelope();
    element->MeasureBounds(Host().NewApplication()->Document()->ActiveView()->Display(), bounds);
    return bounds->Width() > 0 && bounds->Height() > 0 ? bounds : nullptr;
}

host::Ref<host::IHostElement> Layout::ElementAt(double x, double y) {
    const auto& elements = TheDesk().CurrentDocument().elements;
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
        const auto bounds = BoundsOf(*element);
        if (bounds && x >= bounds->XMin() && x <= bounds->XMax() && y >= bounds->YMin() &&
            y <= bounds->YMax())
            return *element;
    }
    return nullptr;
}

void Layout::Choose(const host::Ref<host::IHostElement>& element) {
    for (std::size_t i = 0; i < frames_.size(); ++i)
        if (frames_[i].element == element) chosen_ = i;
    UseChosen();
}

void Layout::Caution(const std::string& sentence) {
    notices_.push_back({Notice::Kind::Warning, sentence});
}

}  // namespace app
