#pragma once

#include <cstdint>
#include <source_location>
#include <string>

#include "host/Dialogs.h"

/// The failure convention. A procedure that call stacks name has one failure exit over its whole
/// body, written as a function-try-block; other functions let failures pass. An inner procedure's
/// exit adds its location to the description and raises again (PassOn); a top procedure's exit
/// shows the collected call stack in one dialog and lets the procedure return normally (ShowAtTop),
/// so that no failure reaches the host.
namespace gazetteer {

/// The number of every error that this component raises itself, except in symbol drawing.
inline constexpr auto kOwnError = static_cast<std::int32_t>(0x80040201U);

/// Location labels of the code units, spelled as hosts and users know them.
inline constexpr char kGeneralFunctionsLabel[] = "CVNGazetteer:GeneralFunctions";
inline constexpr char kManagerLabel[] = "CVNGazeteer:CVNGazetteerManager";
inline constexpr char kSortLabel[] = "CVNGazetteer:clsTableSortNumberAware";
inline constexpr char kFormLabel[] = "CVNGazetteer:frmGazetteerPropertyPage";
inline constexpr char kPropertyPageLabel[] = "CVNGazetteer:GazetteerPropertyPage";
inline constexpr char kDrawSymbolLabel[] = "CVNGazetteer:basDrawSymbol";

/// Raises an error of this component's own and records the caller's source line.
[[noreturn]] void Raise(const std::string& source, const std::string& description,
                        std::source_location where = std::source_location::current());
/// The same with a number of the unit's own.
[[noreturn]] void Raise(std::int32_t number, const std::string& source,
                        const std::string& description,
                        std::source_location where = std::source_location::current());

/// Failure exit of an inner procedure: passes the exception in flight on, with a line for the
/// procedure in its description. To be called inside a catch block.
[[noreturn]] void PassOn(const char* procedure, const char* label);

/// Failure exit of a top procedure: shows the exception in flight. To be called inside a catch
/// block.
void ShowAtTop(host::IHostDialogs& dialogs, const char* procedure, const char* label) noexcept;

/// The exception in flight as a failure; standard exceptions get one of the host's failure codes.
host::Failure CurrentFailure();

/// "Line : 120", or the empty string for line 0.
std::string FormatErrorLine(std::int32_t line);

/// Common to both exits. Puts the error's number and text into a block if the description has none
/// yet, then shows the dialog (isTop) or raises again with one more stack line. Returns only if
/// isTop is true.
void ReportError(host::IHostDialogs* dialogs, bool isTop, const std::string& where,
                 host::Failure failure);

/// Beeps and shows the call stack; returns when the user has dismissed it.
void ShowErrorDialog(host::IHostDialogs& dialogs, const std::string& where,
                     const host::Failure& failure);

}  // namespace gazetteer
