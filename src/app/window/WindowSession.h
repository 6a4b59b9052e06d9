#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/document/NewDocument.h"
#include "app/document/Sheets.h"

namespace app {

/// The work of the window on one document: its notices, its pages, and whether it is modified. The
/// pages are those of the gazetteer frame that was selected last, at first of the lowest one.
///
/// The document is modified when its settings, its elements or their draft state have been changed.
/// Drawing a page or running the gazetteer does not modify it, since both can be repeated.
class WindowSession {
public:
    explicit WindowSession(desk::DeskOptions options);
    WindowSession(const WindowSession&) = delete;
    WindowSession& operator=(const WindowSession&) = delete;

    OpenDocument& Document() { return document_; }
    host::IHost& Host() { return document_.Host(); }
    bool HasDocument() const { return !Path().empty(); }
    /// Reads a document and draws it. Throws, and keeps the document before, for a file that cannot
    /// be read.
    void Open(const std::string& path);
    /// Makes a new document, not on disk yet, by the options, and dressed for print if so asked.
    /// Throws, and keeps the document before, where that fails.
    void StartNew(const NewDocumentOptions& options, bool dressed);
    /// Saves the document to its path. Throws, with nothing changed, also where another program has
    /// changed the file since it was read or saved.
    void Save();
    /// Saves the document to another path, which is its own from then on, and replaces the file
    /// there. Throws with nothing changed.
    void SaveTo(const std::string& documentPath);
    /// The path of the document or, of one not on disk yet, a proposal; empty without a document.
    const std::string& Path() const { return document_.Path(); }
    bool OnDisk() const { return document_.DeskRef()->Replaceable().has_value(); }
    bool Modified() const { return modified_; }
    void NoteChange() { modified_ = true; }
    /// Whether the document is made from this file, so that nothing may be written over it.
    bool Needs(const std::string& path);

    /// Binds a new manager to each gazetteer frame and draws its page, where it can be drawn and is
    /// not in draft state. The page is the default page at first, later the page shown before, or
    /// the last one where there are fewer.
    void Refresh();
    /// Warnings since the last refresh, one sentence each.
    const std::vector<std::string>& Notices() const { return notices_; }
    /// Counts of the runs of the last refresh, or of the stored results.
    const std::string& Summary() const { return summary_; }
    /// Shows a warning in a message box.
    void Warn(const std::string& title, const std::string& sentence);

    /// The page on show, from 1; 0 where there is none.
    std::int32_t Page() const;
    /// The number of pages that can be shown.
    std::int32_t Pages() const;
    /// Draws a page from 1 to Pages, unless the frame is in draft state.
    void TurnTo(std::int32_t page);
    std::string PageName(std::int32_t page);
    bool InDraft() const;
    /// Removes the drawn page, or draws it again.
    void SetDraft(bool draft);

    /// Writes pages as WriteSheets does, and then draws the page on show again.
    void Export(const std::string& path, const PageRange& pages, const SheetListener& before);

    /// Returns the uppermost element at a place in inches; null where there is none.
    host::Ref<host::IHostElement> ElementAt(double x, double y);
    /// Null for an element without extent.
    host::Ref<host::IHostEnvelope> BoundsOf(const host::Ref<host::IHostElement>& element);
    /// Turns to the pages of this element, if it is a gazetteer frame.
    void Choose(const host::Ref<host::IHostElement>& element);

private:
    void TakeDocument();
    void RefreshChosen();
    void Draw();
    void ShowAgain(bool draft);
    void TellOfResults();
    void TellOfFonts();
    void AddNotice(const std::string& sentence) { notices_.push_back(sentence); }
    bool Drawable() const;

    OpenDocument document_;
    std::vector<std::string> notices_;
    std::string summary_;
    std::size_t fontsTold_ = 0;  ///< Substitutions of fonts that documents before have caused.
    bool modified_ = false;
};

}  // namespace app
