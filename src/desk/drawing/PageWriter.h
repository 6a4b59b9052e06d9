#pragma once

#include <memory>
#include <span>
#include <string>

#include "desk/drawing/Canvas.h"
#include "desk/files/ReplacingFile.h"

namespace desk {

/// Writes sheets to a file: BeginPage, drawing, EndPage for each, then Finish, or Complete and
/// Place where several files are to appear together. Every failure is a host::Failure that names
/// the file. No file appears before Place, and one that was there before stays until then; a device
/// is written to at once.
class PageWriter {
public:
    virtual ~PageWriter() = default;

    /// Starts a sheet of a size in inches.
    void BeginPage(double width, double height);

    /// The canvas of the sheet, valid until EndPage. Its origin is the lower left corner of the
    /// sheet, so that places on the sheet have a negative Y.
    Canvas& Sheet() const { return *sheet_; }

    /// Ends the sheet, with its bookmark if the format has bookmarks.
    void EndPage(const std::string& bookmark = {});

    void Finish() {
        Complete();
        Place();
    }
    /// Writes the end of the file and frees the memory; a file descriptor stays open.
    void Complete();
    void Place() { file_.Commit(); }

protected:
    enum class Sheets { One, Many };

    PageWriter(const std::string& path, Sheets most)
        : file_(path, ReplacingFile::Devices::WriteAtOnce), most_(most) {}

    /// Returns the canvas for a sheet of a size in points.
    virtual Canvas& BeginSheet(double width, double height) = 0;
    virtual void EndSheet(const std::string& bookmark) = 0;
    /// Writes the last bytes to the file and frees what produced them.
    virtual void Close() = 0;

    ReplacingFile& File() { return file_; }

private:
    [[noreturn]] void Refuse(const std::string& reason) const;

    ReplacingFile file_;
    Sheets most_;
    Canvas* sheet_ = nullptr;
    int sheets_ = 0;  ///< Sheets begun.
};

struct PageWriterOptions {
    std::string title;         ///< Of the document, for PDF.
    double dotsPerInch = 150;  ///< Resolution, for PNG.
};

/// A file format for pages.
struct PageFormat {
    const char* name;    ///< For lists.
    const char* ending;  ///< Of file names, in lower case, with its dot.
    bool manySheets;     ///< One file takes all sheets.
    std::unique_ptr<PageWriter> (*open)(const std::string& path, const PageWriterOptions& options);
};

/// All formats.
std::span<const PageFormat> PageFormats();
/// Returns the format of a file name by its ending, in any case of letters; null for other endings.
const PageFormat* FormatOf(const std::string& path);
/// Their endings for a sentence: ".pdf, .png or .svg".
std::string PageEndings();

/// Returns the writer for a file name. Throws host::Failure for any other ending.
std::unique_ptr<PageWriter> OpenPageWriter(const std::string& path,
                                           const PageWriterOptions& options = {});

}  // namespace desk
