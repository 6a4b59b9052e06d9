#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desk/session/Desk.h"
#include "support/TemporaryFolder.h"
#include "support/TestHost.h"

namespace support {

/// The real desk with real tables in a folder of its own. Nothing is faked but the dialogs.
class TestDesk : public TestHost {
public:
    /// The options are taken but for the dialogs; the locale is en_US where they name none.
    explicit TestDesk(const desk::DeskOptions& options = {});

    desk::Desk& TheDesk() { return *desk_; }
    const std::string& Folder() const { return folder_.Path(); }

    /// Works with the example's book, or that of a path. The template "Map sheet" of its section
    /// "Maps", which starts on page 5, has the map series frame "Main map".
    void UseBook(const std::string& path = GAZETTEER_SOURCE_DIR "/examples/atlas-book.json");
    /// Stores a link to that frame, by way of a section of this key.
    void StoreLink(const Group& element, const std::string& section);

private:
    /// Texts are C 60, numbers N 6; the name is a path.
    std::string NewTable(const std::vector<std::string>& fields, std::size_t texts,
                         const Rows& rows) override;

    TemporaryFolder folder_;
    std::shared_ptr<desk::Desk> desk_;
    int tables_ = 0;
};

}  // namespace support
