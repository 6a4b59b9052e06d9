#pragma once

#include <string>

#include "layout/LayoutPass.h"

/// The rows around the listings: titles at the head of every column group, and breaks between
/// listings by first letter. The letter of a column is the first character of its cell, or, where
/// the column has IHostIndexLetters, the letter of the locale's index.
namespace gazetteer {

enum class HeadingKind { Letter, Continued };

/// Text of a column's cell in the title row; blank for a column without a title.
std::string TitleText(const LayoutColumn& column);

/// Text of a column's cell in the heading before a row: its letter, or the text of Continued;
/// blank for a column without breaks and for a row without a letter.
std::string HeadingText(LayoutPass& pass, LayoutColumn& column, const std::string& rowKey,
                        HeadingKind kind);

/// Inner procedure: the title row; a column without a title has a blank cell in it.
host::Ref<host::IHostElement> MakeTitleGroup(LayoutPass& pass, const host::IHostPoint& position);

/// Inner procedure: the break row that stands before the row. A heading shows the row's letter as
/// it stands there; a digit or an empty cell shows none.
host::Ref<host::IHostElement> MakeBreakGroup(LayoutPass& pass, const std::string& rowKey,
                                             HeadingKind kind, const host::IHostPoint& position,
                                             bool alternate);

/// Whether some break column shows a heading for the row's letter.
bool RowHasLetter(LayoutPass& pass, const std::string& rowKey);

/// Inner procedure: whether a break is due between two rows: some break column's first letter
/// differs, case aside, and is no digit.
bool RowNeedsBreak(LayoutPass& pass, const std::string& thisRow, const std::string& previousRow);

/// Inner procedure: whether a break is due before the very first listing.
bool NeedsTopMostBreak(LayoutPass& pass);

}  // namespace gazetteer
