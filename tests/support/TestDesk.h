#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "desk/session/Desk.h"
#include "manager/CVNGazetteerManager.h"
#include "support/RecordingDialogs.h"
#include "support/TemporaryFolder.h"

namespace support {

/// The real desk with real tables in a folder of its own, and short ways to set up a gazetteer on
/// it. Nothing is faked but the dialogs, which are recorded.
class TestDesk {
public:
    using Rows = std::vector<std::vector<std::string>>;
    using Group = host::Ref<host::IHostGroupElement>;

    /// The options are taken but for locale, dialogs and the status bar's text.
    explicit TestDesk(desk::DeskOptions options = {});

    desk::Desk& TheDesk() { return *desk_; }
    const std::string& Folder() const { return folder_.Path(); }
    host::IHost& Host() { return *desk_; }
    host::Ref<host::IHost> HostRef() { return desk_; }
    RecordingDialogs& Dialogs() { return *dialogs_; }
    std::vector<std::string>& StatusTexts() { return *statusTexts_; }
    host::Ref<host::IHostDisplay> Display();
    const std::shared_ptr<desk::TextEngine>& TextEngine() const { return desk_->Text(); }

    /// Path of a table with the fields Listing (C 60), Ref (C 20) and Page (N 6). Rows give listing
    /// and reference; Page holds the reference where that is a number.
    std::string ListingTable(const Rows& rows);
    /// Path of a table with Listing, Page, Row and Column, all but the first numeric.
    std::string GridTable(const Rows& rows);
    void ReplaceTable(const std::string& path, Rows rows);

    /// Works with a map book whose series frames page through "sheets.dbf": character fields, rows.
    void UseBook(const std::string& json, const std::pair<std::vector<std::string>, Rows>& sheets);

    /// A gazetteer with its left lower corner at (1, 1), of this size in inches, with the default
    /// columns of the table in Liberation Sans, 1.9 inches wide.
    Group NewGazetteer(const std::string& table, double width, double height);

    host::Ref<host::IHostPropertySet> Properties(const Group& element);
    host::Ref<host::IHostPropertySet> Column(const Group& element, const std::string& name);
    host::Ref<host::IHostTextSymbol> TextSymbol(const std::string& family, double points);
    host::Ref<host::IHostEnvelope> Bounds(host::IHostElement& element);

    /// Listings as "Listing|Page", in order.
    std::vector<std::string> ListingTexts(const gazetteer::CVNGazetteerManager& manager);
    /// The element tree with tags, boxes and texts, a line per element.
    std::string Dump(const host::IHostGroupElement& element, const std::string& indent = "");

    static std::string Tag(const host::IHostElement& element);
    static std::vector<host::Ref<host::IHostElement>> Members(
        const host::IHostGroupElement& element, const std::string& tag);
    static std::string CellText(const host::IHostElement& row, int column);
    /// The texts of a column as they are drawn, from the top.
    static std::vector<std::string> DrawnTexts(const host::IHostGroupElement& element,
                                               int column = 0);
    static host::Ref<host::IHostPropertySet> SetIn(const host::IHostPropertySet& set,
                                                   const std::string& name);
    template <class T>
    static host::Variant Object(const host::Ref<T>& object) {
        return host::Ref<host::IHostObject>(object);
    }

private:
    TemporaryFolder folder_;
    std::shared_ptr<RecordingDialogs> dialogs_ = std::make_shared<RecordingDialogs>();
    std::shared_ptr<std::vector<std::string>> statusTexts_ =
        std::make_shared<std::vector<std::string>>();
    std::shared_ptr<desk::Desk> desk_;
    int tables_ = 0;
};

}  // namespace support
