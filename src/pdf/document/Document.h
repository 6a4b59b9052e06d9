#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "pdf/color/PageColors.h"
#include "pdf/content/PageContent.h"
#include "pdf/file/Metadata.h"
#include "pdf/fonts/FontSet.h"
#include "pdf/navigation/Bookmarks.h"
#include "pdf/structure/StructureTree.h"

namespace pdf {

struct Options {
    std::string title;
    std::string program;           ///< That makes the file.
    std::string language;          ///< As in "de-AT"; empty: not known.
    std::int64_t firstNumber = 1;  ///< Printed on the first page.
    /// Whether the file tells the structure and the meaning of its contents. Such a file keeps to
    /// PDF/A-2 at level A and to PDF/UA-1; without a language or a title, to PDF/A-2 at level B.
    bool tags = true;
    /// Makes a PDF/X-4 file for a printer, with the colours of a press and without tags.
    std::optional<Press> press = {};
};

/// A PDF file of texts, boxes and lines on pages, written as it grows:
///
///   Document document(output, options);
///   PageContent& page = document.BeginPage(612, 792);
///   page.SetMeaning({Role::Heading});
///   page.Show(font, glyphs, baseline);   // fonts from Pango, glyphs as a text engine placed them
///   document.EndPage({"Aachen", 792}, {});
///   document.Finish();
///
/// Lengths are points, the origin of a page is its lower left corner, Y goes downward, so that Y is
/// negative on a page. Colours are 0xBBGGRR, with an ink where one is
/// known; neutral ones are written as gray, or for a press as black ink. Fonts are embedded
/// as subsets, each code with its text. The same calls give the same bytes. Of a page nothing stays
/// in memory but some numbers. What cannot be written is an Error.
class Document {
public:
    Document(Output& output, Options options);

    PageContent& BeginPage(double width, double height);
    /// A title adds a bookmark to the page, and below it those of places on the page.
    void EndPage(const Bookmark& page, std::span<const Bookmark> places);
    /// Writes the rest of the file. Throws Violated for one that would not be what it claims to be.
    void Finish();

private:
    std::string Catalog(const About& about);
    Claims ClaimsOf() const;
    std::vector<Violation> Broken();
    void CheckSides();

    Options options_;
    const Press* press_;  ///< Null for a file that is not for a press.
    ObjectFile objects_;
    PageColors colors_;
    FontSet fonts_;
    Bookmarks bookmarks_;
    Links links_;
    int catalog_, pageTree_, resources_;
    std::unique_ptr<StructureTree> structure_;  ///< Null without tags.
    std::vector<int> pages_;                    ///< Object numbers.
    std::unique_ptr<PageContent> content_;
    double width_ = 0, height_ = 0;
};

}  // namespace pdf
