#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/document/RecordingDialogs.h"
#include "desk/session/Desk.h"
#include "manager/CVNGazetteerManager.h"

namespace app {

inline constexpr char kFrameWithoutPlace[] =
    "The document is damaged: the gazetteer's frame has no place on the sheet.";

/// A gazetteer frame of a document. A manager keeps the map book of the document it was created
/// for, so each document needs new managers.
struct GazetteerFrame {
    host::Ref<host::IHostGroupElement> element;
    std::shared_ptr<gazetteer::CVNGazetteerManager> manager;
    std::int32_t page = 0;  ///< Page shown in the window, from 1; 0: none yet.
    /// Listings of the last binding in the window, to see when the property page has made others.
    host::Ref<host::IHostPropertySet> listings = {};
};

/// The desk with its document and the gazetteer frames in it. Commands and pages apply to the
/// chosen frame, initially the lowest.
class OpenDocument {
public:
    /// Shows a warning of one sentence to the user.
    using WarningListener = std::function<void(const std::string& sentence)>;

    OpenDocument(desk::DeskOptions options, WarningListener listener);
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;

    /// Reads a document. Throws if it cannot be read; the current document is then kept.
    void Open(const std::string& path);
    /// Makes a new document, not on disk yet, the current one.
    void Start(desk::Document document, const std::string& path);
    void Save() { desk_->Save(); }

    /// Everything that Open and Start replace.
    struct State {
        desk::Document document;
        std::string path;
        std::optional<desk::FileState> replaceable;
        std::vector<GazetteerFrame> frames;
        std::size_t chosen = 0;
    };
    State Present() const;
    void Restore(State state);

    const std::shared_ptr<desk::Desk>& DeskRef() const { return desk_; }
    desk::Desk& TheDesk() { return *desk_; }
    host::IHost& Host() { return *desk_; }
    RecordingDialogs& Dialogs() { return *dialogs_; }
    const std::string& Path() const { return desk_->DocumentPath(); }

    /// Finds the gazetteer frames again and creates new managers. Known frames keep their page.
    void FindFrames();
    std::vector<GazetteerFrame>& Frames() { return frames_; }
    std::size_t ChosenIndex() const { return chosen_; }
    void Choose(std::size_t index) { chosen_ = index; }
    /// Null if the document has no gazetteer frame.
    GazetteerFrame* Chosen() { return frames_.empty() ? nullptr : &frames_[chosen_]; }
    const GazetteerFrame* Chosen() const { return frames_.empty() ? nullptr : &frames_[chosen_]; }

    /// The chosen frame and its properties; null without a frame.
    host::Ref<host::IHostGroupElement> Gazetteer() const;
    host::Ref<host::IHostPropertySet> Properties() const;
    /// The manager of the chosen frame, or an unbound one without a frame.
    gazetteer::CVNGazetteerManager& Manager() const;
    std::int32_t PageCount() const { return Manager().Working().pageCount; }

    /// Returns whether the element passes its check; if not, adds the reasons. An exception during
    /// the check counts as a reason.
    bool CanDraw(gazetteer::Findings& reasons);
    /// Returns why the chosen gazetteer could not be bound.
    gazetteer::Findings Reasons();
    /// Returns whether the document is made from a file: its map book, a listing database, an index
    /// layer of the book, or what belongs to one of these tables. Needs no binding.
    bool IsMadeFrom(const std::string& path) const;
    /// Throws AlreadyReported if a failure was shown since the last call.
    void CheckNothingFailed();
    void Warn(const std::string& sentence) { warningListener_(sentence); }

private:
    std::shared_ptr<RecordingDialogs> dialogs_;
    WarningListener warningListener_;
    std::shared_ptr<desk::Desk> desk_;
    std::shared_ptr<gazetteer::CVNGazetteerManager> unbound_;
    std::vector<GazetteerFrame> frames_;
    std::size_t chosen_ = 0;
};

}  // namespace app
