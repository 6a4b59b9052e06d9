#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "manager/CVNGazetteerManager.h"
#include "support/RecordingDialogs.h"

namespace support {

/// Short ways to set up a gazetteer on a host and to look at it. The dialogs are recorded.
class TestHost {
public:
    using Rows = std::vector<std::vector<std::string>>;
    using Group = host::Ref<host::IHostGroupElement>;
    using Assignments = std::vector<std::pair<std::string, host::Variant>>;

    virtual ~TestHost() = default;

    host::IHost& Host() { return *host_; }
    host::Ref<host::IHost> HostRef() { return host_; }
    RecordingDialogs& Dialogs() { return dynamic_cast<RecordingDialogs&>(host_->Dialogs()); }
    host::Ref<host::IHostDisplay> Display();

    /// Name of a table with the fields Listing, Ref and Page. Rows give listing and reference; Page
    /// holds the reference where that is a number.
    std::string ListingTable(const Rows& rows);
    /// Name of a table with Listing, Page, Row and Column, all but the first numbers.
    std::string GridTable(const Rows& rows);
    /// A gazetteer with its left lower corner at (1, 1), of this size in inches, with the default
    /// columns of the table in Liberation Sans, 1.9 inches wide.
    Group NewGazetteer(const std::string& table, double width, double height);

    host::Ref<host::IHostPropertySet> Properties(const Group& element);
    host::Ref<host::IHostPropertySet> Column(const Group& element, const std::string& name);
    /// Stores values with a gazetteer, those of a column under "Column.Key".
    void Store(const Group& element, const Assignments& assignments);
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
                                               int column = 0, const char* rows = "ROWGROUP");
    static host::Ref<host::IHostPropertySet> SetIn(const host::IHostPropertySet& set,
                                                   const std::string& name);
    template <class T>
    static host::Variant Object(const host::Ref<T>& object) {
        return host::Ref<host::IHostObject>(object);
    }

protected:
    /// On a host whose dialogs are RecordingDialogs.
    explicit TestHost(host::Ref<host::IHost> host) : host_(std::move(host)) {}

private:
    /// Makes a table of texts, but of numbers behind the first so many fields; returns its name.
    virtual std::string NewTable(const std::vector<std::string>& fields, std::size_t texts,
                                 const Rows& rows) = 0;

    host::Ref<host::IHost> host_;
};

}  // namespace support
