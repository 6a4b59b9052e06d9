#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/document/NewDocument.h"
#include "app/document/Sheets.h"

namespace app {

/// Something that the user should know about the document, in one sentence.
struct Notice {
    enum class Kind { Information, Warning };
    Kind kind = Kind::Information;
    std::string text;
};

/// The window's work on one document: its notices, its pages, and whether it is modified. The
/// frame that was selected last, at first the lowest, is the one whose pages are turned.
///
/// The document counts as modified once its settings, its elements or their draft state were
/// changed. Drawn pages and the results of a run are saved with it, but can always be had again, so
/// that making them is no change.
class WindowSession {
public:
    explicit WindowSession(desk::DeskOptions options);
    WindowSession(const WindowSession&) = delete;
    WindowSession& operator=(const WindowSession&) = delete;

    OpenDocument& Document() { return document_; }
    host::IHost& Host() { return document_.Host(); }
    bool HasDocument() const { return hasDocument_; }
    /// Reads a document and draws it. Fails, with the document before still there, for a file that
    /// cannot be read.
    void Open(const std::string& path);
    /// A new document, not on disk yet: the given options, dressed for print if so asked. Fails
    /// with the document before still there.
    void StartNew(const NewDocumentOptions& options, bool dressed);
    /// Saves where the document is. Fails with nothing changed, also where another program has
    /// changed the file meanwhile.
    void Save();
    /// Saves under a path, which is the document's from then on, over whatever stands there. Fails
    /// with nothing changed.
    void SaveTo(const std::string& documentPath);
    /// Where the document is or, of one not on disk yet, where it might be saved.
    const std::string& Path() const { return document_.Path(); }
    bool OnDisk() const { return onDisk_; }
    bool Modified() const { return modified_; }
    void NoteChange() { modified_ = true; }
    /// Whether the document needs this file, so that nothing may be written over it.
    bool Needs(const std::string& path);

    /// Binds a new manager to each gazetteer frame and draws its page anew, where it can be drawn
    /// and is not in draft state. The page is the default page at first, later that shown before,
    /// or the last one where there are fewer.
    void Refresh();
    /// What is to be told since the last refresh.
    const std::vector<Notice>& Notices() const { return notices_; }
    /// What became of the records in the runs of the last refresh, or what was stored.
    const std::string& Summary() const { return summary_; }

    /// The page on show, from 1; 0 where there is none.
    std::int32_t Page() const;
    /// Pages that can be shown.
    std::int32_t Pages() const;
    /// Draws a page from 1 to Pages, unless the frame is in draft state.
    void TurnTo(std::int32_t page);
    std::string PageName(std::int32_t page);
    bool InDraft() const;
    /// Takes the drawn page away, or brings it back.
    void SetDraft(bool draft);

    /// Writes pages as WriteSheets does. The page on show is the same afterwards.
    void Export(const std::string& path, const PageRange& pages, const SheetListener& before);

    /// The uppermost element at a place in inches; null where there is none.
    host::Ref<host::IHostElement> ElementAt(double x, double y);
    /// Null for an element without extent.
    host::Ref<host::IHostEnvelope> BoundsOf(const host::Ref<host::IHostElement>& element);
    /// Turns to the pages of this element, if it is a gazetteer frame.
    void Choose(const host::Ref<host::IHostElement>& element);

private:
    void TakeDocument(bool onDisk);
    void NoteSaved();
    void RefreshChosen();
    void Draw();
    void ShowAgain(bool draft);
    void TellOfResults();
    void TellOfFonts();
    void Warn(const std::string& sentence);
    bool Drawable() const;

    OpenDocument document_;
    std::vector<Notice> notices_;
    std::string summary_;
    std::size_t fontsTold_ = 0;  ///< Of those told of for the documents before.
    bool hasDocument_ = false;
    bool onDisk_ = false;
    bool modified_ = false;
};

}  // namespace app
