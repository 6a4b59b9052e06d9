#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/document/NotedDialogs.h"
#include "desk/session/Desk.h"
#include "manager/CVNGazetteerManager.h"

namespace app {

/// A gazetteer frame of a document. A manager keeps the map book of the document that it was made
/// with, so each document needs new ones.
struct GazetteerFrame {
    host::Ref<host::IHostGroupElement> element;
    std::shared_ptr<gazetteer::CVNGazetteerManager> manager;
    std::int32_t page = 0;  ///< On show in a window; 0: none so far.
};

/// The running desk with its document, and the gazetteer frames on it. One frame is worked on, at
/// first the lowest.
class OpenDocument {
public:
    /// Tells the user of something odd that stops nothing, in one sentence.
    using Caution = std::function<void(const std::string& sentence)>;

    /// The dialogs become those of the desk.
    OpenDocument(desk::DeskOptions options, std::shared_ptr<NotedDialogs> dialogs, Caution caution);
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;

    /// Reads a document and works on it. Fails, with the document before still there, for a file
    /// that cannot be read.
    void Open(const std::string& path);
    /// Works on a new document, which is not on disk yet.
    void Start(desk::Document document, const std::string& path);
    void Save() { desk_->Save(); }

    /// What Start replaces.
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
    NotedDialogs& Dialogs() { return *dialogs_; }
    const std::string& Path() const { return desk_->DocumentPath(); }

    /// Finds the gazetteer frames anew, with new managers. Those known already keep their page.
    void FindFrames();
    std::vector<GazetteerFrame>& Frames() { return frames_; }
    /// Which of them is worked on.
    std::size_t ChosenIndex() const { return chosen_; }
    void Choose(std::size_t index) { chosen_ = index; }
    /// Null where the document has none.
    GazetteerFrame* Chosen() { return frames_.empty() ? nullptr : &frames_[chosen_]; }
    const GazetteerFrame* Chosen() const { return frames_.empty() ? nullptr : &frames_[chosen_]; }

    /// Of the frame that is worked on; null where the document has none.
    host::Ref<host::IHostGroupElement> Gazetteer() const;
    host::Ref<host::IHostPropertySet> Properties() const;
    /// One that is bound to nothing where the document has no frame.
    gazetteer::CVNGazetteerManager& Manager() const;
    std::int32_t PageCount() const { return Manager().Working().pageCount; }

    /// The element check, with the reasons against it. A check that fails counts as one.
    bool CanDraw(gazetteer::Findings& reasons);
    /// Fails if a failure was shown since the last question.
    void CheckNothingFailed();
    void Warn(const std::string& sentence) { caution_(sentence); }

private:
    std::shared_ptr<NotedDialogs> dialogs_;
    Caution caution_;
    std::shared_ptr<desk::Desk> desk_;
    std::shared_ptr<gazetteer::CVNGazetteerManager> unbound_;
    std::vector<GazetteerFrame> frames_;
    std::size_t chosen_ = 0;
};

}  // namespace app
