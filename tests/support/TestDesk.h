#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desk/session/Desk.h"
#include "support/TemporaryFolder.h"
#include "support/TestHost.h"

namespace support {

class DbfBuilder;

/// The real desk with real tables in a folder of its own. Nothing is faked but the dialogs.
class TestDesk : public TestHost {
public:
    /// The options are taken but for locale and dialogs.
    explicit TestDesk(const desk::DeskOptions& options = {});

    desk::Desk& TheDesk() { return *desk_; }
    const std::string& Folder() const { return folder_.Path(); }

    /// Path of a table with the fields Listing (C 60), Ref (C 20) and Page (N 6). Rows give listing
    /// and reference; Page holds the reference where that is a number.
    std::string ListingTable(const Rows& rows);
    /// Path of a table with Listing, Page, Row and Column, all but the first numeric.
    std::string GridTable(const Rows& rows);

    /// Works with a map book whose series frames page through "sheets.dbf": character fields, rows.
    void UseBook(const std::string& json, const std::pair<std::vector<std::string>, Rows>& sheets);

private:
    TestDesk(desk::DeskOptions options, const std::shared_ptr<RecordingDialogs>& dialogs);
    std::string NewTable(const DbfBuilder& table);

    TemporaryFolder folder_;
    std::shared_ptr<desk::Desk> desk_;
    int tables_ = 0;
};

}  // namespace support
