#include "pdf/structure/StructureTree.h"

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Bytes of the usual elements, and of five references.
/// @{
constexpr std::size_t kItemRow = 40;
constexpr std::size_t kBodyRow = 80;
constexpr std::size_t kReferenceRow = 60;
constexpr std::size_t kArrayRow = 60;
/// @}

/// Digits for numbers of marked content, so that the elements of listings have the same length.
constexpr std::size_t kMarkDigits = 4;

void AppendMark(std::string& out, int mark) {
    const std::string digits = std::to_string(mark);
    out.append(digits.size() < kMarkDigits ? kMarkDigits - digits.size() : 1, ' ');
    out += digits;
}

}  // namespace

StructureTree::StructureTree(ObjectFile& file)
    : file_(file),
      items_(file, kItemRow),
      bodies_(file, kBodyRow),
      references_(file, kReferenceRow),
      arrays_(file, kArrayRow),
      parents_(file, arrays_),
      root_(file.NewObject()),
      document_(file.NewObject()),
      index_(file.NewObject()) {
    documentKids_.push_back(index_);
}

void StructureTree::BeginPage(int page) {
    page_ = page;
    marks_.clear();
}

int StructureTree::EndPage() {
    return marks_.empty() ? -1 : parents_.AddPage(marks_);
}

int StructureTree::Add(const Meaning& meaning) {
    if (meaning.role == Role::Heading) return AddHeading(meaning);
    if (meaning.role == Role::Paragraph) return AddParagraph(meaning);
    return AddToListing(meaning);
}

void StructureTree::Open(Element& element, const char* type, int object, int parent,
                         const Meaning& meaning) {
    element = {object, meaning.item, type, parent, page_, {}, std::string(meaning.language)};
}

/// Writes an element, if one is open.
void StructureTree::Close(Element& element) {
    if (element.object != 0) file_.WriteObject(element.object, Body(element));
    element.object = 0;
}

void StructureTree::Close(Element& element, ObjectRows& rows) {
    if (element.object != 0) rows.Write(element.object, Body(element));
    element.object = 0;
}

/// Adds content to an element. Returns its mark.
int StructureTree::AddPiece(Element& element, const Meaning& meaning) {
    const auto mark = static_cast<int>(marks_.size());
    if (meaning.actualText.empty()) {
        marks_.push_back(element.object);
        AddMark(element, mark);
    } else {
        marks_.push_back(AddSpan(element, meaning.actualText));
        AppendAligned(element.kids, marks_.back());
    }
    return mark;
}

/// Content of another page than the element's first names its page.
void StructureTree::AddMark(Element& element, int mark) const {
    if (element.page == page_) return AppendMark(element.kids, mark);
    element.kids += "<</Type/MCR/Pg " + Reference(page_) + "/MCID " + std::to_string(mark) + ">>";
}

/// Writes an element for the next mark, which tells its text. Returns its object number.
int StructureTree::AddSpan(const Element& element, std::string_view actualText) {
    file_.Found().CheckText("a text", actualText);
    return file_.WriteObject("<</S/Span/P " + Reference(element.object) + "/Pg " +
                             Reference(page_) + "/ActualText" + TextString(actualText) + "/K " +
                             std::to_string(marks_.size()) + ">>");
}

std::string StructureTree::Body(const Element& element) {
    std::string body = "<</S/";
    body += element.type;
    body += "/P";
    AppendAligned(body, element.parent);
    body += "/Pg";
    AppendAligned(body, element.page);
    if (!element.language.empty()) body += "/Lang" + TextString(element.language);
    return body + "/K[" + element.kids + "]>>";
}

/// Adds content to a link inside an element.
int StructureTree::AddLinked(Element& element, const Meaning& meaning) {
    if (meaning.target == target_ && link_.object != 0) return AddPiece(link_, meaning);
    Close(link_);
    if (!meaning.target) return AddPiece(element, meaning);
    target_ = meaning.target;
    Open(link_, "Link", file_.NewObject(), element.object, {meaning.role, meaning.item});
    AppendAligned(element.kids, link_.object);
    return AddPiece(link_, meaning);
}

int StructureTree::AddLink(int link) {
    link_.kids += "<</Type/OBJR/Obj " + Reference(link) + "/Pg " + Reference(page_) + ">>";
    return parents_.Add(link_.object);
}

int StructureTree::AddHeading(const Meaning& meaning) {
    if (heading_.object == 0 || heading_.item != meaning.item) {
        Close(heading_);
        CloseList();
        Open(heading_, "H1", file_.NewObject(), index_, meaning);
        indexKids_.push_back(heading_.object);
    }
    return AddPiece(heading_, meaning);
}

int StructureTree::AddParagraph(const Meaning& meaning) {
    if (paragraph_.object == 0 || paragraph_.item != meaning.item) {
        Close(paragraph_);
        Open(paragraph_, "P", file_.NewObject(), document_, meaning);
        documentKids_.push_back(paragraph_.object);
    }
    return AddPiece(paragraph_, meaning);
}

int StructureTree::AddToListing(const Meaning& meaning) {
    Close(heading_);
    if (item_ == 0 || meaning.item != body_.item) BeginListing(meaning);
    if (meaning.role != Role::Reference) {
        CloseReference();
        return AddPiece(body_, meaning);
    }
    if (reference_.object == 0) {
        Open(reference_, "Reference", references_.NewObject(), body_.object, meaning);
        AppendAligned(body_.kids, reference_.object);
    }
    return AddLinked(reference_, meaning);
}

void StructureTree::BeginListing(const Meaning& meaning) {
    CloseListing();
    if (list_ == 0) {
        list_ = file_.NewObject();
        indexKids_.push_back(list_);
    }
    item_ = items_.NewObject();
    listKids_.push_back(item_);
    Open(body_, "LBody", bodies_.NewObject(), item_, meaning);
    if (meaning.role != Role::Name) body_.language.clear();
}

void StructureTree::CloseReference() {
    Close(link_);
    Close(reference_, references_);
}

void StructureTree::CloseListing() {
    if (item_ == 0) return;
    CloseReference();
    const int body = body_.object;
    Close(body_, bodies_);
    std::string item = "<</S/LI/P";
    AppendAligned(item, list_);
    item += "/K";
    AppendAligned(item, body);
    items_.Write(item_, item + ">>");
    item_ = 0;
}

void StructureTree::CloseList() {
    CloseListing();
    if (list_ == 0) return;
    arrays_.Write(
        list_, AlignedArray("<</S/L/A<</O/List/ListNumbering/None>>/P " + Reference(index_) + "/K",
                            listKids_, ">>"));
    list_ = 0;
    listKids_.clear();
}

int StructureTree::Write() {
    Close(heading_);
    Close(paragraph_);
    CloseList();
    for (ObjectRows* rows : {&items_, &bodies_, &references_}) rows->Flush();
    arrays_.Write(index_,
                  AlignedArray("<</S/Index/P " + Reference(document_) + "/K", indexKids_, ">>"));
    arrays_.Write(document_,
                  AlignedArray("<</S/Document/P " + Reference(root_) + "/K", documentKids_, ">>"));
    const int parents = parents_.Write();
    arrays_.Flush();
    file_.WriteObject(root_, "<</Type/StructTreeRoot/K " + Reference(document_) + "/ParentTree " +
                                 Reference(parents) + "/ParentTreeNextKey " +
                                 std::to_string(parents_.NextKey()) + ">>");
    return root_;
}

}  // namespace pdf
