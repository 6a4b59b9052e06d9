#pragma once

#include <vector>

#include "app/document/OpenDocument.h"

namespace app {

/// What a run can change in a document, so that a cancelled run can be undone.
class DocumentBefore {
public:
    explicit DocumentBefore(OpenDocument& document);

    /// Restores everything but the drawn page: that of a frame in draft state is taken away, that
    /// of another is to be drawn again.
    void Restore(OpenDocument& document) const;

private:
    /// The properties with their values, which runs replace but do not change.
    struct Frame {
        host::Ref<host::IHostGroupElement> element;
        host::Ref<host::IHostPropertySet> properties;
        host::PropertyItems items;
        bool draft = false;
    };

    OpenDocument::State state_;
    std::vector<Frame> frames_;
};

}  // namespace app
