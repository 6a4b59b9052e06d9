#pragma once

#include <memory>
#include <span>
#include <string>

#include "desk/drawing/Canvas.h"
#include "desk/drawing/OutputFile.h"

namespace desk {

/// Writes sheets to a file: BeginPage, drawing, EndPage for each, then Finish, or Complete and
/// Place where several files are to come about together. Every failure is a host::Failure that
/// names the file. Until the end no file comes about, and one that was there before stays.
class PageWriter {
public:
    virtual ~PageWriter() = default;

    /// Starts a sheet of a size in inches.
    void BeginPage(double width, double height);

    /// Where the sheet is drawn, until EndPage: the origin at its lower left corner, so that what
    /// stands on the sheet has a negative Y.
    Canvas& Sheet() const { return *sheet_; }

    /// Ends the sheet. The name is its bookmark, where the kind of file has bookmarks.
    void EndPage(const std::string& bookmark = {});

    void Finish() {
        Complete();
        Place();
    }
    /// Ends the file, which now costs no memory but keeps a descriptor open.
    void Complete();
    void Place() { file_.Commit(); }

protected:
    enum class Sheets { One, Many };

    PageWriter(const std::string& path, Sheets most) : file_(path), most_(most) {}

    /// The canvas of a sheet of a size in points. What is painted is kept only if EndSheet follows.
    virtual Canvas& BeginSheet(double width, double height) = 0;
    virtual void EndSheet(const std::string& bookmark) = 0;
    /// Hands the last bytes to the file and lets go of what made them.
    virtual void Close() = 0;

    OutputFile& File() { return file_; }
    const OutputFile& File() const { return file_; }

private:
    [[noreturn]] void Refuse(const std::string& reason) const;

    OutputFile file_;
    Sheets most_;
    Canvas* sheet_ = nullptr;
    int sheets_ = 0;  ///< Sheets begun.
};

struct PageWriterOptions {
    std::string title;         ///< Of the document, for PDF.
    double dotsPerInch = 150;  ///< Resolution, for PNG.
};

/// A kind of file that pages are written to.
struct PageFormat {
    const char* name;    ///< As lists show it.
    const char* ending;  ///< Of file names, in lower case, with its dot.
    bool manySheets;     ///< One file takes all sheets.
    std::unique_ptr<PageWriter> (*open)(const std::string& path, const PageWriterOptions& options);
};

/// All that there are.
std::span<const PageFormat> PageFormats();
/// Returns the format of a file name by its ending, in any case of letters; null for other endings.
const PageFormat* FormatOf(const std::string& path);
/// Their endings for a sentence: ".pdf, .png or .svg".
std::string PageEndings();

/// The writer for a file name. Fails for an ending that is none of these.
std::unique_ptr<PageWriter> OpenPageWriter(const std::string& path,
                                           const PageWriterOptions& options = {});

}  // namespace desk
