#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/work/NotedDialogs.h"
#include "desk/session/Desk.h"
#include "manager/CVNGazetteerManager.h"

namespace app {

/// Work on one document: the running desk, the gazetteer frame that is worked on, and a manager for
/// it.
class Work {
public:
    /// The dialogs become those of the desk.
    Work(desk::DeskOptions options, std::shared_ptr<NotedDialogs> dialogs);
    virtual ~Work() = default;
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

    /// Works on a new document with this gazetteer frame.
    void Start(desk::Document document, const std::string& path,
               const host::Ref<host::IHostGroupElement>& gazetteer);
    void Save() { desk_->Save(); }

    desk::Desk& TheDesk() { return *desk_; }
    host::IHost& Host() { return *desk_; }
    /// Null where the document has none.
    const host::Ref<host::IHostGroupElement>& Gazetteer() const { return gazetteer_; }
    host::Ref<host::IHostPropertySet> Properties();
    gazetteer::CVNGazetteerManager& Manager() { return *manager_; }
    std::int32_t PageCount() const { return manager_->Working().pageCount; }

    /// The element check, with the reasons against it. A check that fails counts as one.
    bool CanDraw(gazetteer::Findings& reasons);
    /// Fails if a failure was shown since the last question.
    void CheckNothingFailed();

    /// Tells the user of something odd that stops nothing, in one sentence.
    virtual void Caution(const std::string& sentence) = 0;

protected:
    NotedDialogs& Dialogs() { return *dialogs_; }
    const std::shared_ptr<desk::Desk>& DeskRef() const { return desk_; }
    /// A manager keeps the map book of the document that it was made with, so each document needs
    /// new ones.
    std::shared_ptr<gazetteer::CVNGazetteerManager> NewManager() const;
    void Use(host::Ref<host::IHostGroupElement> gazetteer,
             std::shared_ptr<gazetteer::CVNGazetteerManager> manager);

private:
    std::shared_ptr<NotedDialogs> dialogs_;
    std::shared_ptr<desk::Desk> desk_;
    host::Ref<host::IHostGroupElement> gazetteer_;
    std::shared_ptr<gazetteer::CVNGazetteerManager> manager_;
};

}  // namespace app
