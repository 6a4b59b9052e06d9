#pragma once

#include <optional>
#include <string>

#include "app/document/FindFindings.h"
#include "app/document/OpenDocument.h"

namespace app {

/// Options of all commands.
struct CommonOptions {
    std::string locale;    ///< As for IcuLocale; empty: the user's.
    bool verbose = false;  ///< Show failures with their call stack.
};

/// Returns options of a desk with messages and progress on standard error.
desk::DeskOptions DeskOptionsOf(const CommonOptions& options);

/// One command's work on one document. Failures end the command; warnings go to standard error.
class CommandSession {
public:
    explicit CommandSession(const CommonOptions& options);
    /// Warns about substituted fonts if nothing has looked for findings.
    ~CommandSession();
    CommandSession(const CommandSession&) = delete;
    CommandSession& operator=(const CommandSession&) = delete;

    OpenDocument& Document() { return document_; }

    /// Reads a document. Throws if it cannot be read or has no gazetteer frame.
    OpenDocument& Open(const std::string& path);
    /// Reads a document, with or without a gazetteer frame.
    OpenDocument& Look(const std::string& path);

    /// Binds the manager and prints a run's summary. Returns false after a failure, already shown.
    bool Bind();
    /// Binds the manager. Throws with the reasons if the gazetteer cannot be drawn.
    void BindDrawable();
    /// Returns what would be wrong on the pages, or on all.
    FindingList Find(const std::optional<PageRange>& pages = std::nullopt,
                     const MapPages* maps = nullptr);
    /// The same, with a warning for each.
    FindingList TellFindings(const std::optional<PageRange>& pages = std::nullopt,
                             const MapPages* maps = nullptr);
    /// The same; if strict, throws if there is anything.
    void CheckFindings(const std::optional<PageRange>& pages, bool strict,
                       const MapPages* maps = nullptr);
    /// Throws if there is no page to draw.
    void CheckHasPages();

private:
    OpenDocument document_;
    bool found_ = false;  ///< Findings, which tell substituted fonts with their place.
};

}  // namespace app
