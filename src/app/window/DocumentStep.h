#pragma once

#include <QUndoCommand>
#include <functional>
#include <utility>

#include "app/document/DocumentState.h"

namespace app {

/// An edit that was made already, with the document's state on its other side: before the edit, or
/// after it once it is undone.
class DocumentStep : public QUndoCommand {
public:
    /// Brings the document to a state and puts there the one that it had.
    using Exchange = std::function<void(DocumentState& state)>;

    DocumentStep(const QString& text, DocumentState before, Exchange exchange)
        : QUndoCommand(text), other_(std::move(before)), exchange_(std::move(exchange)) {}

    void undo() override { exchange_(other_); }
    /// The first call comes from the push.
    void redo() override {
        if (std::exchange(pushed_, true)) exchange_(other_);
    }

private:
    DocumentState other_;
    Exchange exchange_;
    bool pushed_ = false;
};

}  // namespace app
