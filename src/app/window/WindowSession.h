#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/document/DocumentState.h"
#include "app/document/FindingList.h"
#include "app/document/NewDocument.h"
#include "app/document/Sheets.h"
#include "app/window/RunControl.h"

namespace app {

/// The window's document: its notices, pages, and whether it is modified. The pages are those of
/// the gazetteer frame selected last, initially the lowest one.
///  Changed settings, elements or draft state modify the document. Drawing a page or running the
/// gazetteer does not, since both can be repeated.
class WindowSession {
public:
    WindowSession(desk::DeskOptions options, RunControl& control);
    WindowSession(const WindowSession&) = delete;
    WindowSession& operator=(const WindowSession&) = delete;

    OpenDocument& Document() { return document_; }
    host::IHost& Host() { return document_.Host(); }
    bool HasDocument() const { return !Path().empty(); }
    /// Reads a document and draws it. If it throws, the current document is kept. Throws
    /// RunCancelled, as StartNew does, if the user cancels the run.
    void Open(const std::string& path);
    /// Creates a document, not on disk yet; `forPrint` applies the print defaults of `make`. The
    /// notices of what was made for it stand before its own. If it throws, the current document is
    /// kept.
    void StartNew(const NewDocumentOptions& options, bool forPrint,
                  const std::vector<std::string>& notices = {});
    /// Saves the document to its path. Throws and changes nothing if that fails or another program
    /// has changed the file since it was read or saved.
    void Save();
    /// Saves the document to another path, which becomes its own, and replaces a file there. If it
    /// throws, nothing has changed.
    void SaveTo(const std::string& documentPath);
    /// The document's path, or a proposed path if it is not on disk yet; empty without a document.
    const std::string& Path() const { return document_.Path(); }
    bool OnDisk() const { return document_.DeskRef()->Replaceable().has_value(); }
    bool Modified() const { return modified_; }
    void SetModified(bool modified) { modified_ = modified; }

    DocumentState State() { return StateOf(document_); }
    /// Brings the document back to a state of its own and draws it.
    void Restore(const DocumentState& state);

    /// Binds a new manager to each gazetteer frame and draws its page if it is drawable and not in
    /// draft state. The page is first the default page, later the page shown before, or the last
    /// page if there are fewer. If the user cancels it, the document is as it was before, with a
    /// notice that says so.
    void Refresh();
    /// The same, and makes results anew whose sources have changed.
    void RefreshOld();
    /// Does work that can run the gazetteer and that the user can cancel. Returns false if it was
    /// cancelled; the document is then as it was before, with a notice that says so.
    bool Run(const std::function<void()>& work);
    /// Warnings since the last refresh, one sentence each, without those of Findings.
    const std::vector<std::string>& Notices() const { return notices_; }
    /// What would be wrong in print, of all gazetteers, as of the last refresh.
    const FindingList& Findings() const { return findings_; }
    /// Why gazetteers cannot be drawn, as of the last refresh; the notices tell it, too.
    const FindingList& Reasons() const { return reasons_; }
    /// Counts of the last refresh's runs, or of the stored results.
    const std::string& Summary() const { return summary_; }
    void Warn(const std::string& title, const std::string& sentence);

    /// Page shown, from 1; 0: none.
    std::int32_t Page() const;
    /// Number of pages that can be shown.
    std::int32_t Pages() const;
    /// Draws a page from 1 to Pages(), unless the frame is in draft state.
    void TurnTo(std::int32_t page);
    std::string PageName(std::int32_t page);
    bool InDraft() const;
    /// Removes the drawn page, or draws it again.
    void SetDraft(bool draft);

    /// Does work that draws other pages, then draws the current page, or restores the draft state.
    void DrawOthers(const std::function<void()>& work);
    /// Writes pages as WriteSheets does, then draws the current page again.
    void Export(const std::string& path, const PageRange& pages, const SheetListener& before);

    /// Returns the uppermost element at a point in inches; null if there is none.
    host::Ref<host::IHostElement> ElementAt(double x, double y);
    /// Returns null for an element without extent.
    host::Ref<host::IHostEnvelope> BoundsOf(const host::Ref<host::IHostElement>& element);
    /// Shows the pages of this element if it is a gazetteer frame.
    void Choose(const host::Ref<host::IHostElement>& element);

private:
    bool RunOrRestore(const std::function<void()>& work);
    void TakeDocument();
    /// Calls act with each frame as the chosen one.
    void ForEachFrame(const std::function<void()>& act);
    void RefreshFrames();
    void RefreshChosen();
    void Draw();
    void RestoreView(bool draft);
    void EmptyDrafts();
    void AddResultNotices();
    void AddUndrawable(const std::string& notice, const gazetteer::Findings& reasons);
    void FindInChosen();
    void AddNotice(const std::string& sentence) { notices_.push_back(sentence); }
    bool Drawable() const;

    RunControl& control_;
    OpenDocument document_;
    std::vector<std::string> notices_;
    std::string summary_;
    FindingList findings_;
    FindingList reasons_;
    bool modified_ = false;
};

}  // namespace app
