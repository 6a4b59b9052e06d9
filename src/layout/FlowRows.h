#pragma once

#include <string>

#include "layout/LayoutPass.h"
#include "layout/TitlesAndBreaks.h"

namespace gazetteer {

/// A row built at some place, and its height in inches.
struct BuiltRow {
    host::Ref<host::IHostElement> group;
    double height = 0;
};

/// Builds the rows that a ColumnFlow places. The position is the top left corner of a row.
class FlowRows {
public:
    virtual ~FlowRows() = default;
    virtual BuiltRow Title(const host::IHostPoint& position) = 0;
    /// The heading of the row's letters.
    virtual BuiltRow Heading(const std::string& rowKey, HeadingKind kind,
                             const host::IHostPoint& position, bool alternate) = 0;
    virtual BuiltRow Listing(const std::string& rowKey, const host::IHostPoint& position,
                             bool alternate) = 0;
    /// Width in inches of the listing, which was built last.
    virtual double WidthOf(const std::string& rowKey, const BuiltRow& row) = 0;
    /// The row has a letter, and the previous one has another.
    virtual bool BeginsLetter(const std::string& rowKey, const std::string& previousRow) = 0;
    virtual bool HasLetter(const std::string& rowKey) = 0;
};

/// Builds each row in a pass of layout.
class PassRows : public FlowRows {
public:
    explicit PassRows(LayoutPass& pass) : pass_(pass) {}

    BuiltRow Title(const host::IHostPoint& position) override;
    BuiltRow Heading(const std::string& rowKey, HeadingKind kind, const host::IHostPoint& position,
                     bool alternate) override;
    BuiltRow Listing(const std::string& rowKey, const host::IHostPoint& position,
                     bool alternate) override;
    double WidthOf(const std::string& rowKey, const BuiltRow& row) override;
    bool BeginsLetter(const std::string& rowKey, const std::string& previousRow) override;
    bool HasLetter(const std::string& rowKey) override;

private:
    BuiltRow Measured(host::Ref<host::IHostElement> group);

    LayoutPass& pass_;
};

}  // namespace gazetteer
