#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/Host.h"
#include "host/LocaleRules.h"
#include "layout/RowTree.h"
#include "layout/TextFit.h"
#include "model/ColumnProperties.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// A column as one pass of layout works with it.
class LayoutColumn {
public:
    LayoutColumn(std::string columnName, ColumnProperties columnProperties,
                 host::Ref<host::IHostPropertySet> columnListings)
        : name(std::move(columnName)),
          properties(std::move(columnProperties)),
          listings(std::move(columnListings)) {}

    std::string name;
    ColumnProperties properties;
    host::Ref<host::IHostPropertySet> listings;  ///< Row key to cell text.

    /// Text of a row's cell; valid until two more rows are read. Fails for a row without one.
    const std::string& Cell(const std::string& rowKey, host::IHostLocale& locale) {
        return Read(rowKey, locale).text;
    }
    /// The letter of a row's cell in the index of the locale, valid as long; empty for a digit or
    /// sign. Requires letters.
    const std::string& IndexLetter(const std::string& rowKey, host::IHostLocale& locale);

    /// Where the headings of the column are letters of the locale's index; else null.
    host::IHostIndexLetters* letters = nullptr;

private:
    struct Known {
        std::string rowKey;
        std::string text;
        bool isSet = false;
        std::optional<std::string> letter = {};
    };
    Known& Read(const std::string& rowKey, host::IHostLocale& locale);

    /// The last two: of a row, and of the one before, with whose letter its own is compared.
    std::array<Known, 2> known_;
    std::size_t oldest_ = 0;
};

/// State of one pass of layout, numbering or drawing: the display, the columns in display order,
/// and the text fitter. Each pass makes its own, since settings and frame may have changed.
class LayoutPass {
public:
    LayoutPass(host::IHost& host, const Settings& settings, const WorkingResults& results,
               host::Ref<host::IHostFillSymbol> transparentFill,
               host::Ref<host::IHostDisplay> display, RowSource::Use rows);

    host::IHost& Host() { return host_; }
    const Settings& GetSettings() const { return settings_; }
    const WorkingResults& Results() const { return results_; }
    const host::Ref<host::IHostDisplay>& Display() const { return display_; }
    TextFit& Text() { return text_; }
    RowSource& Rows() { return rows_; }
    /// Scratch point to place cells with; the elements copy it.
    host::IHostPoint& Pen() { return *pen_; }
    /// Inner procedures: an element's bounds in inches, or their width or height alone; of a group,
    /// the bounds of all its members. The next call overwrites the envelope.
    const host::IHostEnvelope& GetElementBounds(host::IHostElement& element);
    double GetElementWidth(host::IHostElement& element) {
        return GetElementBounds(element).Width();
    }
    double GetElementHeight(host::IHostElement& element);
    std::vector<LayoutColumn>& Columns() { return columns_; }
    /// Names of the columns in which a word of the row built last had to be broken.
    std::vector<std::string>& BrokenColumns() { return brokenColumns_; }
    const std::vector<std::string>& BrokenColumns() const { return brokenColumns_; }
    const host::Ref<host::IHostFillSymbol>& TransparentFill() const { return transparentFill_; }

    /// The settings ask for columns from right to left.
    bool RunsRightToLeft() const;
    /// Lays the columns from right to left where the settings ask for it, between the edges of a
    /// frame, in inches.
    void MirrorBetween(double left, double right);
    bool IsMirrored() const { return mirror_.has_value(); }
    /// The place on the other side of the frame's middle. Requires mirrored columns.
    double Mirrored(double x) const { return mirror_.value_or(0) - x; }

    /// Some column shows its title.
    bool HasTitle() const;
    /// The first letters of some column decide the breaks.
    bool HasBreak() const;

private:
    void SetIndexLetters();

    host::IHost& host_;
    const Settings& settings_;
    const WorkingResults& results_;
    host::Ref<host::IHostFillSymbol> transparentFill_;
    host::Ref<host::IHostDisplay> display_;
    TextFit text_;
    RowSource rows_;
    host::Ref<host::IHostPoint> pen_;
    host::Ref<host::IHostEnvelope> bounds_;
    std::vector<LayoutColumn> columns_;
    std::vector<std::string> brokenColumns_;
    std::optional<double> mirror_;  ///< Sum of two places that are each other's mirror.
};

}  // namespace gazetteer
