#pragma once

#include <string>

#include "app/document/OpenDocument.h"
#include "app/document/Options.h"

namespace app {

/// One command's work on one document: what goes wrong ends the command, and what is odd is told on
/// standard error.
class CommandSession {
public:
    explicit CommandSession(const CommonOptions& options);
    /// Tells what fonts stood in for others, and what no font has.
    ~CommandSession();
    CommandSession(const CommandSession&) = delete;
    CommandSession& operator=(const CommandSession&) = delete;

    OpenDocument& Document() { return document_; }

    /// Works on a document from disk. Fails for one without a gazetteer frame.
    OpenDocument& Open(const std::string& path);
    /// The same for commands that only tell about a document: one without a gazetteer frame is one
    /// that cannot be drawn.
    OpenDocument& Look(const std::string& path);

    /// Binds the manager and tells what a run did. False after a failure, which the user has been
    /// told of.
    bool Bind();
    /// Binds, or ends the command: with the reasons where the gazetteer cannot be drawn.
    void BindDrawable();
    /// Fails if there is no page to draw.
    void CheckHasPages();

private:
    OpenDocument document_;
};

}  // namespace app
