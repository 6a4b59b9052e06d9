#include "app/window/WindowSession.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/PageFurniture.h"
#include "app/document/SettingsEdit.h"
#include "support/Conversions.h"

namespace app {
namespace {

host::IHostFrameElement& FrameStateOf(const host::Ref<host::IHostGroupElement>& element) {
    return *host::As<host::IHostFrameElement>(element);
}

void Assign(OpenDocument& document, const std::vector<std::string>& assignments) {
    if (assignments.empty()) return;
    SettingsEdit edit(document);
    for (const auto& assignment : assignments) edit.Set(assignment);
    edit.StoreWithoutWarnings();
}

}  // namespace

WindowSession::WindowSession(desk::DeskOptions options, RunControl& control)
    : control_(control),
      document_(std::move(options), [this](const std::string& sentence) { AddNotice(sentence); }) {}

void WindowSession::Open(const std::string& path) {
    const bool done = RunOrRestore([&] {
        document_.Open(path);
        notices_.clear();
        TakeDocument();
    });
    if (!done) throw RunCancelled{};
}

void WindowSession::StartNew(const NewDocumentOptions& options, bool forPrint,
                             const std::vector<std::string>& notices) {
    const auto start = [&] {
        auto before = document_.Present();
        const auto noticesBefore = std::exchange(notices_, notices);
        try {
            std::filesystem::path place = FullPath(options.listingDatabase);
            StartNewDocument(document_, options, place.replace_extension(".json"));
            if (forPrint) ApplyPrintDefaults(document_);
            Assign(document_, options.assignments);
        } catch (...) {
            document_.Restore(std::move(before));
            notices_ = noticesBefore;
            throw;
        }
        TakeDocument();
    };
    if (!RunOrRestore(start)) throw RunCancelled{};
}

void WindowSession::TakeDocument() {
    modified_ = !OnDisk();
    // Refresh clears the notices; keep those from opening or creating the document.
    const auto earlier = notices_;
    Refresh();
    notices_.insert(notices_.begin(), earlier.begin(), earlier.end());
}

void WindowSession::SaveTo(const std::string& documentPath) {
    desk::Document document = document_.TheDesk().CurrentDocument();
    if (documentPath != Path()) {
        const std::string mapBook = desk::MapBookPath(document, Path());
        if (!mapBook.empty()) document.mapBook = desk::PathFromDocument(mapBook, documentPath);
    }
    const auto written = desk::WriteDocument(document, documentPath);
    if (documentPath != Path()) document_.TheDesk().Start(std::move(document), documentPath);
    document_.TheDesk().SetReplaceable(written);
    modified_ = false;
}

void WindowSession::Save() {
    document_.Save();
    modified_ = false;
}

void WindowSession::Warn(const std::string& title, const std::string& sentence) {
    document_.Dialogs().MessageBox({title, sentence, host::kWarningOk, nullptr});
}

bool WindowSession::Run(const std::function<void()>& work) {
    const bool done = RunOrRestore(work);
    if (!done) AddNotice("The run was cancelled; the document is as it was before.");
    return done;
}

bool WindowSession::RunOrRestore(const std::function<void()>& work) {
    // Work inside other work is restored with it.
    if (control_.Running()) return control_.Run(work, {});
    const auto document = document_.Present();
    const auto state = State();
    const GazetteerItems items(state);
    const auto notices = notices_;
    const auto summary = summary_;
    const auto findings = findings_;
    const auto reasons = reasons_;
    const bool modified = modified_;
    std::optional<RecordingDialogs::Silent> silent;
    if (control_.Run(work, [&] { silent.emplace(document_.Dialogs()); })) return true;
    document_.Restore(document);
    items.Restore();
    app::Restore(document_, state);
    EmptyDrafts();
    notices_ = notices;
    summary_ = summary;
    findings_ = findings;
    reasons_ = reasons;
    modified_ = modified;
    Draw();
    return false;
}

bool WindowSession::Drawable() const {
    return document_.Chosen() && document_.Manager().CanDraw() && document_.PageCount() > 0;
}

void WindowSession::Draw() {
    if (!Drawable() || InDraft()) return;
    const std::int32_t page = document_.Chosen()->page;
    document_.Manager().SetIndexToPageNumber(page);
    try {
        LabelSheet(document_, page);
    } catch (const std::exception&) {
        AddNotice(CurrentSentence());
    }
}

std::int32_t WindowSession::Pages() const {
    return Drawable() ? document_.PageCount() : 0;
}

std::int32_t WindowSession::Page() const {
    return Drawable() ? document_.Chosen()->page : 0;
}

void WindowSession::TurnTo(std::int32_t page) {
    if (page < 1 || page > Pages()) return;
    document_.Chosen()->page = page;
    Draw();
}

// Silent, because a list of pages requests many names and a damaged document would show a message
// for each.
std::string WindowSession::PageName(std::int32_t page) {
    if (control_.Running()) return {};
    const RecordingDialogs::Silent silent(document_.Dialogs());
    return gazetteer::ToText(document_.Manager().PageName(page), Host().Locale());
}

bool WindowSession::InDraft() const {
    return document_.Chosen() && FrameStateOf(document_.Gazetteer()).Draft();
}

void WindowSession::SetDraft(bool draft) {
    if (!document_.Chosen() || InDraft() == draft) return;
    Run([this, draft] {
        modified_ = true;
        if (draft) document_.Manager().DraftMode();
        FrameStateOf(document_.Gazetteer()).SetDraft(draft);
        if (!draft) Refresh();
    });
}

void WindowSession::Restore(const DocumentState& state) {
    app::Restore(document_, state);
    for (auto& frame : document_.Frames()) frame.listings = nullptr;
    Refresh();
    EmptyDrafts();
}

// Takes the drawn pages from the frames in draft state.
void WindowSession::EmptyDrafts() {
    for (const auto& frame : document_.Frames())
        if (FrameStateOf(frame.element).Draft()) frame.manager->DraftMode();
}

void WindowSession::Export(const std::string& path, const PageRange& pages,
                           const SheetListener& before) {
    CheckSheetsApart(document_, path, pages, OnDisk() ? Path() : "");
    DrawOthers([&] { WriteSheets(document_, path, pages, before); });
}

void WindowSession::DrawOthers(const std::function<void()>& work) {
    const bool draft = InDraft();
    // An earlier failure must not end the work.
    document_.Dialogs().TakeFailureShown();
    try {
        work();
    } catch (...) {
        RestoreView(draft);
        throw;
    }
    RestoreView(draft);
}

// Restores the page or the draft state after other pages were drawn.
void WindowSession::RestoreView(bool draft) {
    if (!draft) return Draw();
    document_.Manager().DraftMode();
    FrameStateOf(document_.Gazetteer()).SetDraft(true);
}

host::Ref<host::IHostEnvelope> WindowSession::BoundsOf(
    const host::Ref<host::IHostElement>& element) {
    // Measured bounds of a group can exceed its frame.
    if (host::As<host::IHostGroupElement>(element) && element->Geometry())
        return element->Geometry()->Bounds();
    auto bounds = Host().NewEnvelope();
    element->MeasureBounds(Host().NewApplication()->Document()->ActiveView()->Display(), bounds);
    return bounds->Width() > 0 && bounds->Height() > 0 ? bounds : nullptr;
}

host::Ref<host::IHostElement> WindowSession::ElementAt(double x, double y) {
    const auto& elements = document_.TheDesk().CurrentDocument().elements;
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
        const auto bounds = BoundsOf(*element);
        if (bounds && x >= bounds->XMin() && x <= bounds->XMax() && y >= bounds->YMin() &&
            y <= bounds->YMax())
            return *element;
    }
    return nullptr;
}

void WindowSession::Choose(const host::Ref<host::IHostElement>& element) {
    const auto& frames = document_.Frames();
    for (std::size_t i = 0; i < frames.size(); ++i)
        if (frames[i].element == element) document_.Choose(i);
}

}  // namespace app
