#pragma once

#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "layout/CellSetter.h"
#include "layout/FlowRows.h"
#include "layout/RowTree.h"

namespace gazetteer {

/// Builds rows whose texts are set line by line, for settings that the plain rules do not know:
/// hanging indents, line breaks of Unicode, leaders on a grid, references on the last line, heights
/// of whole lines, and columns from right to left. A pass that measures builds no elements.
class SetRows : public PassRows {
public:
    explicit SetRows(LayoutPass& pass);

    BuiltRow Title(const host::IHostPoint& position) override;
    BuiltRow Heading(const std::string& rowKey, HeadingKind kind, const host::IHostPoint& position,
                     bool alternate) override;
    BuiltRow Listing(const std::string& rowKey, const host::IHostPoint& position,
                     bool alternate) override;
    double WidthOf(const std::string& rowKey, const BuiltRow& row) override;

private:
    /// How one column sets the texts of one kind of row.
    struct Style {
        Style(LayoutPass& pass, host::Ref<host::IHostTextSymbol> textSymbol, SettingRules setting)
            : setter(pass, textSymbol), symbol(std::move(textSymbol)), rules(setting) {}

        CellSetter setter;
        host::Ref<host::IHostTextSymbol> symbol;
        SettingRules rules;
        bool isJustified = false;
        /// The symbol placed at the left, the middle and the right, and justified.
        std::array<host::Ref<host::IHostTextSymbol>, 4> placed;
    };

    /// A cell of the row that is being built. Lengths are inches.
    struct Cell {
        SetText text;
        std::vector<double> tops;  ///< Of the lines, below the top of the row.
        double height = 0;
    };

    template <class TextOf>
    BuiltRow Build(RowKind kind, const host::IHostPoint& position, bool alternate,
                   const TextOf& textOf);
    double SetCells(RowKind kind, const auto& textOf);
    double PlaceLines(const ColumnProperties& column, RowKind kind, double drop, Cell& cell) const;
    host::Ref<host::IHostElement> MakeElements(RowKind kind, const host::IHostPoint& position,
                                               bool alternate, double height);
    void FillCell(const CellElements& elements, const Cell& cell, std::size_t column, RowKind kind,
                  double x, double top);
    void FillBackground(const CellElements& elements, const ColumnProperties& column, RowKind kind,
                        bool alternate, double x, double top, double height);

    Style& StyleOf(std::size_t column, RowKind kind);
    const host::Ref<host::IHostTextSymbol>& Placed(Style& style, Anchor anchor) const;
    void FindGridLine();

    LayoutPass& pass_;
    const Typesetting& typesetting_;
    double gridLine_ = 0;  ///< Height of a listing of one line; 0 without a grid.
    std::vector<Cell> cells_;
    std::unordered_map<std::size_t, Style> styles_;  ///< By column and kind.
};

/// The rows that the settings of the pass ask for.
std::unique_ptr<FlowRows> MakeFlowRows(LayoutPass& pass);

}  // namespace gazetteer
