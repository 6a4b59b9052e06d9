#pragma once

#include <string>
#include <vector>

#include "pdf/file/ObjectRows.h"
#include "pdf/structure/Meaning.h"
#include "pdf/structure/ParentTree.h"

namespace pdf {

/// Builds the logical structure of a file from its texts in reading order:
///
///   Document
///     Index
///       H1, L, H1, L ...   headings, and the listings behind each
///         LI, LBody        a listing, its name as content
///           Reference
///     P ...                texts that are no part of the index
///
/// Elements are written as soon as they are complete; of a listing nothing stays in memory but the
/// number of its item.
class StructureTree {
public:
    explicit StructureTree(ObjectFile& file);

    /// Starts a page, which is the object of that number.
    void BeginPage(int page);

    /// Adds content of the page. Returns the number that marks it. Only for roles that are content.
    int Add(const Meaning& meaning);

    /// Adds a link, the object of that number, to the content that was added last, which must have
    /// a target. Returns its key in the parent tree.
    int AddLink(int link);

    /// Ends the page. Returns its key in the parent tree; -1 for a page without content.
    int EndPage();

    /// Writes what is left. Returns the object number of the root.
    int Write();

private:
    /// An element of which pieces of content may still come.
    struct Element {
        int object = 0;  ///< 0: none is open.
        std::uint64_t item = 0;
        const char* type = "";
        int parent = 0;    ///< Object number.
        int page = 0;      ///< Object number of the page of its first piece.
        std::string kids;  ///< As the file has them.
        std::string language;
    };

    int AddPiece(Element& element, const Meaning& meaning);
    void Open(Element& element, const char* type, int object, int parent, const Meaning& meaning);
    void Close(Element& element);
    void Close(Element& element, ObjectRows& rows);
    int AddSpan(const Element& element, std::string_view actualText);
    void AddMark(Element& element, int mark) const;
    static std::string Body(const Element& element);

    int AddLinked(Element& element, const Meaning& meaning);
    int AddHeading(const Meaning& meaning);
    int AddParagraph(const Meaning& meaning);
    int AddToListing(const Meaning& meaning);
    void BeginListing(const Meaning& meaning);
    void CloseReference();
    void CloseListing();
    void CloseList();

    ObjectFile& file_;
    ObjectRows items_, bodies_, references_, arrays_;
    ParentTree parents_;
    int root_, document_, index_;
    std::vector<int> documentKids_, indexKids_;

    int page_ = 0;
    std::vector<int> marks_;  ///< The element of each piece of content of the page.

    Element heading_, paragraph_;
    int list_ = 0, item_ = 0;  ///< Object numbers; 0: none is open.
    std::vector<int> listKids_;
    Element body_, reference_;        ///< Of the item.
    Element link_;                    ///< Of what was added last.
    const Target* target_ = nullptr;  ///< Of the link.
};

}  // namespace pdf
