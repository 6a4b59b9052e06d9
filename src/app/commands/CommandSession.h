#pragma once

#include <string>

#include "app/document/OpenDocument.h"

namespace app {

/// What every command takes.
struct CommonOptions {
    std::string locale;    ///< As IcuLocale takes it; empty: the user's.
    bool verbose = false;  ///< Failures are shown with their call stack.
};

/// A desk with messages and progress on standard error.
desk::DeskOptions DeskOptionsOf(const CommonOptions& options);

/// The work of one command on one document. Failures end the command; warnings go to standard
/// error.
class CommandSession {
public:
    explicit CommandSession(const CommonOptions& options);
    /// Warns of fonts that were replaced, and of characters that no font has.
    ~CommandSession();
    CommandSession(const CommandSession&) = delete;
    CommandSession& operator=(const CommandSession&) = delete;

    OpenDocument& Document() { return document_; }

    /// Reads a document. Throws for one that cannot be read or has no gazetteer frame.
    OpenDocument& Open(const std::string& path);
    /// Reads a document that need not have a gazetteer frame.
    OpenDocument& Look(const std::string& path);

    /// Binds the manager and prints what a run did. Returns false after a failure, which has been
    /// shown.
    bool Bind();
    /// Binds the manager; throws, with the reasons, where the gazetteer cannot be drawn.
    void BindDrawable();
    /// Throws if there is no page to draw.
    void CheckHasPages();

private:
    OpenDocument document_;
};

}  // namespace app
