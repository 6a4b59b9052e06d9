#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "desk/drawing/Canvas.h"
#include "desk/files/ReplacingFile.h"
#include "pdf/color/PressProfile.h"

namespace desk {

/// A title, and the height of its place above the lower edge of the sheet, in inches.
struct Bookmark {
    std::string title;
    double height = 0;
};

/// Writes sheets to a file: BeginPage, drawing and EndPage for each, then Finish; or Complete and
/// Place, to make several files appear together. Failures are host::Failure and name the file. The
/// file appears only with Place, and an existing file is kept until then; a device is written
/// directly.
class PageWriter {
public:
    virtual ~PageWriter() = default;

    /// Starts a sheet; sizes in inches.
    void BeginPage(double width, double height);

    /// Returns the canvas of the sheet, valid until EndPage. The origin is the lower left corner of
    /// the sheet, so Y is negative on the sheet.
    Canvas& Sheet() const { return *sheet_; }

    /// Ends the sheet. Where the format supports it, a title adds a bookmark to the sheet, and
    /// below it those of places on the sheet.
    void EndPage(const std::string& title = {}, std::span<const Bookmark> places = {});

    void Finish() {
        Complete();
        Place();
    }
    /// Writes the end of the file and frees memory; the file descriptor stays open.
    void Complete();
    void Place() { file_.Commit(); }

protected:
    enum class Sheets { One, Many };

    PageWriter(const std::string& path, Sheets most)
        : file_(path, ReplacingFile::Devices::WriteAtOnce), most_(most) {}

    /// Returns the canvas of a new sheet; sizes in points.
    virtual Canvas& BeginSheet(double width, double height) = 0;
    virtual void EndSheet(const std::string& title, std::span<const Bookmark> places) = 0;
    /// Writes the rest of the file and frees the buffers.
    virtual void Close() = 0;

    ReplacingFile& File() { return file_; }
    /// Throws a failure that names the file.
    [[noreturn]] void Refuse(const std::string& reason) const;

private:
    ReplacingFile file_;
    Sheets most_;
    Canvas* sheet_ = nullptr;
    int sheets_ = 0;  ///< Number of sheets begun.
};

struct PageWriterOptions {
    std::string title;             ///< Document title, for PDF.
    double dotsPerInch = 150;      ///< Resolution, for PNG.
    std::string language = {};     ///< Of the texts, as in "de-AT", for PDF; empty: not known.
    std::int64_t firstNumber = 1;  ///< Printed on the first sheet, for the page labels of a PDF.
    bool tags = true;              ///< A PDF tells the structure and meaning of its texts.
    std::optional<pdf::Press> press = {};  ///< Makes a PDF for a printer, without tags.
};

struct PageFormat {
    const char* name;    ///< For display.
    const char* ending;  ///< Of file names: lower case, with the dot.
    bool manySheets;     ///< One file contains all sheets.
    std::unique_ptr<PageWriter> (*open)(const std::string& path, const PageWriterOptions& options);
};

std::span<const PageFormat> PageFormats();
/// Returns the format for the ending of a file name, case-insensitive; null for other endings.
const PageFormat* FormatOf(const std::string& path);
/// Returns the endings for a message: ".pdf, .png or .svg".
std::string PageEndings();

/// Opens a writer by the ending of the path. Throws host::Failure for an unknown ending.
std::unique_ptr<PageWriter> OpenPageWriter(const std::string& path,
                                           const PageWriterOptions& options = {});

}  // namespace desk
