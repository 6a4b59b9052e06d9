#pragma once

#include <memory>
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

/// The writer for a file name that ends in .pdf, .svg or .png, whatever its case. Only PDF takes
/// more than one sheet.
std::unique_ptr<PageWriter> OpenPageWriter(const std::string& path,
                                           const PageWriterOptions& options = {});

}  // namespace desk
