#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "layout/LayoutPass.h"
#include "layout/ParagraphBreaker.h"
#include "layout/TextMeasure.h"
#include "model/Typesetting.h"

namespace gazetteer {

/// Which side of a piece stands at its place. The numbers are those of horizontal placement.
enum class Anchor : std::int32_t { Start = 0, Middle = 1, End = 2 };

/// A piece of a line. The place is in inches from the start of the cell's inner width.
struct LinePiece {
    std::string text;
    Anchor anchor = Anchor::Start;
    double place = 0;
};

struct SetLine {
    std::vector<LinePiece> pieces;
    double height = 0;  ///< Inches, as measured.
};

/// A text set in lines.
struct SetText {
    std::vector<SetLine> lines;
    bool toreWord = false;
    bool endsInLeader = false;
};

/// How the texts of a column are set. Lengths are inches.
struct SettingRules {
    double width = 0;  ///< Inner width of the cell.
    Anchor anchor = Anchor::Start;
    double indent = 0;  ///< Of lines that a wrapped paragraph goes on in, where they have room.
};

/// Sets texts of one symbol in lines: breaks them, and fills leaders with dots that stand on one
/// grid, counted from the end of the cell.
class CellSetter {
public:
    CellSetter(LayoutPass& pass, const host::Ref<host::IHostTextSymbol>& symbol);
    CellSetter(const CellSetter&) = delete;
    CellSetter& operator=(const CellSetter&) = delete;

    /// The text may have tokens. Without leaders the dots are left out, as for numbering; the lines
    /// are the same.
    SetText Set(const std::string& text, const SettingRules& rules, bool withDots);

    TextMeasure& Measure() { return measure_; }

private:
    void SetParagraph(std::string_view paragraph, const SettingRules& rules, bool withDots,
                      SetText& set);
    void SetLeader(const std::string& head, const std::string& tail, const SettingRules& rules,
                   bool withDots, SetText& set);
    void AddLines(const std::string& text, const SettingRules& rules, SetText& set);
    void FillLine(SetLine& line, const std::string& tail, double width);
    void AddDots(SetLine& line, double from, double tailWidth, double width);
    SetText Plain(std::string text, const SettingRules& rules);

    /// @{ Inches. The gap is between a text and dots.
    double Gap();
    double Pitch();
    double DotWidth();
    /// @}
    std::string Dots(std::size_t count) const;

    LayoutPass& pass_;
    const Typesetting& typesetting_;
    host::Ref<host::IHostTextSymbol> symbol_;
    TextMeasure measure_;
    ParagraphBreaker breaker_;
    std::optional<double> gap_;
    std::optional<double> pitch_;
    std::optional<double> dotWidth_;
};

}  // namespace gazetteer
