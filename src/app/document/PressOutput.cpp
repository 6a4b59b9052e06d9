#include "app/document/PressOutput.h"

#include <algorithm>
#include <ctime>

#include "app/document/Errors.h"
#include "app/document/SheetSizes.h"
#include "characters/FoldCase.h"
#include "desk/devices/CairoShapes.h"
#include "desk/files/Files.h"
#include "pdf/file/Output.h"

namespace app {
namespace {

std::shared_ptr<const pdf::PressProfile> ReadProfile(const std::string& path) try {
    return std::make_shared<const pdf::PressProfile>(desk::ReadWholeFile(path));
} catch (const pdf::Error& error) {
    throw CommandError("The profile \"" + path + "\" cannot be used: " + error.what() + '.');
}

// Returns points.
double ParseBleed(const std::string& text) {
    constexpr double kMost = 2;  // Inches; printers ask for 3 to 5 mm.
    const double inches = ParseLength(text);
    if (inches > 0 && inches <= kMost) return inches * desk::kPointsPerInch;
    throw UsageError("--bleed " + Shown(text) +
                     ": the bleed must be a length in inches or with mm behind it, such as 3mm "
                     "(more than 0, at most 2 inches).");
}

std::int64_t NewestTime(const std::vector<std::string>& files) {
    std::optional<std::int64_t> newest;
    for (const auto& file : files)
        if (const auto state = desk::FileState::At(file); state.exists)
            newest = std::max(newest.value_or(state.modifiedSeconds), state.modifiedSeconds);
    return newest.value_or(std::time(nullptr));
}

}  // namespace

std::optional<pdf::Press> ReadPress(const PressOptions& options, const std::string& output,
                                    const std::vector<std::string>& sources) {
    if (options.profile.empty()) {
        if (!options.bleed.empty()) throw UsageError("--bleed goes with --press.");
        if (options.cropMarks) throw UsageError("--crop-marks goes with --press.");
        return std::nullopt;
    }
    if (!characters::FoldCase(output).ends_with(".pdf"))
        throw UsageError("--press makes a PDF; the output \"" + output + "\" must end in .pdf.");
    return pdf::Press{ReadProfile(options.profile),
                      options.bleed.empty() ? 0 : ParseBleed(options.bleed), options.cropMarks,
                      NewestTime(sources)};
}

}  // namespace app
