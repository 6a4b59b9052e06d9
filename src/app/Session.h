#pragma once

#include <memory>
#include <string>

#include "app/ConsoleDialogs.h"
#include "app/Options.h"
#include "desk/session/Desk.h"
#include "manager/CVNGazetteerManager.h"

namespace app {

/// One command's work on one document: the running desk, the document's gazetteer frame, and a
/// manager that is bound to it.
class Session {
public:
    explicit Session(const CommonOptions& options);
    /// Tells what fonts stood in for others.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Works on a document from disk. Fails for one without a gazetteer frame.
    void Open(const std::string& path);
    /// The same for commands that only tell about a document: one without a gazetteer frame is one
    /// that cannot be drawn.
    void Look(const std::string& path);
    /// Works on a new document with this gazetteer frame.
    void Start(desk::Document document, const std::string& path,
               const host::Ref<host::IHostGroupElement>& gazetteer);
    void Save() { desk_->Save(); }

    desk::Desk& TheDesk() { return *desk_; }
    host::IHost& Host() { return *desk_; }
    /// Null where the document has none.
    const host::Ref<host::IHostGroupElement>& Gazetteer() const { return gazetteer_; }
    host::Ref<host::IHostPropertySet> Properties();

    /// The element check, with the reasons against it. A check that fails counts as one.
    bool CanDraw(gazetteer::Findings& reasons);
    /// Binds the manager and tells what a run did. False after a failure, which the user has been
    /// told of.
    bool Bind();
    /// Binds, or ends the command: with the reasons where the gazetteer cannot be drawn.
    void BindDrawable();
    /// Fails if a failure was shown since the last question.
    void CheckNothingFailed();

    gazetteer::CVNGazetteerManager& Manager() { return *manager_; }
    std::int32_t PageCount() const { return manager_->Working().pageCount; }
    /// Fails if there is no page to draw.
    void CheckHasPages() const;

private:
    void FindGazetteer();
    void TellRun();
    void TellTableWarnings();

    std::shared_ptr<ConsoleDialogs> dialogs_;
    std::shared_ptr<desk::Desk> desk_;
    host::Ref<host::IHostGroupElement> gazetteer_;
    std::unique_ptr<gazetteer::CVNGazetteerManager> manager_;
};

}  // namespace app
