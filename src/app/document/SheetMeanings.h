#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/document/ColumnMeaning.h"
#include "app/document/Headings.h"
#include "app/document/MapPages.h"
#include "app/document/OpenDocument.h"
#include "desk/drawing/TextReader.h"
#include "desk/locale/ScriptLanguages.h"
#include "host/KnownCast.h"

namespace app {

/// Tells what the texts of sheets mean, one sheet after another: headings, names of listings,
/// references, leaders, and what belongs to the sheet alone. It reads the tags of a drawn page and
/// the settings of the gazetteer.
class SheetMeanings final : public desk::TextReader {
public:
    /// For the bound gazetteer, with its present settings. The pages, which references lead to, may
    /// be null.
    SheetMeanings(OpenDocument& open, MapPages* pages);

    void Enter(const host::IHostGroupElement& group) override;
    void Leave() override;
    std::span<const desk::TextPart> Read(const host::IHostTextElement& element,
                                         std::string_view text) override;

private:
    enum class Row : std::uint8_t { None, Title, Heading, Listing };

    void BeginRow(Row row, const host::IHostGroupElement& group);
    void BeginHeading(const host::IHostGroupElement& group);
    bool HasName(const host::IHostGroupElement& row) const;
    void AddSheetText(const host::IHostTextElement& element);
    void BeginCell(const host::IHostGroupElement& cell);
    void AddListingText(const ColumnMeaning& column, std::string_view text);
    void AddReferences(std::string_view text, std::size_t before);
    void Add(pdf::Role role, std::string_view text, std::size_t end);

    MapPages* pages_;
    std::vector<ColumnMeaning> columns_;
    std::string leader_;  ///< The characters of leaders that are texts of their own.
    HeadingSequence headings_;
    desk::ScriptLanguages languages_;
    host::KnownCast<const host::IHostElementName> asNamed_;

    std::size_t rowDepth_ = 0;  ///< Depth inside the row.
    Row row_ = Row::None;
    std::size_t column_ = 0;       ///< Cells of the row that were entered.
    bool isBehindLeader_ = false;  ///< In the cell.
    std::uint64_t items_ = 0;      ///< Headings, listings and other texts so far.
    std::uint64_t listing_ = 0;    ///< Number of the last listing.
    bool isToldAgain_ = false;     ///< The heading, whose listings go on.
    std::vector<desk::TextPart> parts_;
    std::string cellText_;                    ///< All references of the cell, a line for each text.
    std::vector<FoundReference> references_;  ///< In it.
    const MapSquares* squares_ = nullptr;     ///< That they tell.
    std::size_t cellAt_ = 0;                  ///< Bytes of it that were read.
};

}  // namespace app
