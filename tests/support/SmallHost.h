#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/TestHost.h"
#include "texthost/TextHost.h"

namespace support {

/// The host of examples/embed, with tables in memory. Each character is 0.6 of the size of its font
/// wide, each line 1.2 high, so that widths can be told: 12 letters of 10 points to the inch.
class SmallHost : public TestHost {
public:
    SmallHost();

    /// Name of a table with the fields Listing, Ref and Page. Rows give listing and reference; Page
    /// holds the reference where that is a number.
    std::string ListingTable(const Rows& rows);
    /// Name of a table with Listing, Page, Row and Column, all but the first numbers.
    std::string GridTable(const Rows& rows);
    texthost::Workspace& Tables();

    /// Works with a map book of these sections.
    void UseBook(std::vector<texthost::Section> sections, const std::string& currentTemplate);

    /// What the status bar was told: its texts, and the calls of its animation in brackets.
    std::vector<std::string>& Progress();

private:
    class RecordingBar;
    class RecordingHost;

    explicit SmallHost(const std::shared_ptr<RecordingHost>& host);
    std::string Put(const std::vector<std::string>& fields,
                    const std::vector<texthost::Values>& rows);

    std::shared_ptr<RecordingHost> host_;
    int tables_ = 0;
};

}  // namespace support
