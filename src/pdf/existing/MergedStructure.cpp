#include "pdf/existing/MergedStructure.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFNumberTreeObjectHelper.hh>

namespace pdf {
namespace {

/// Adds an offset to a key of the parent tree, where an object has it.
void Move(QPDFObjectHandle object, const char* key, long long offset) {
    auto value = object.getKey(key);
    if (value.isInteger())
        object.replaceKey(key, QPDFObjectHandle::newInteger(value.getIntValue() + offset));
}

void MoveKeys(QPDFObjectHandle page, long long offset) {
    Move(page, "/StructParents", offset);
    for (auto& annotation : page.getKey("/Annots").aitems())
        Move(annotation, "/StructParent", offset);
}

/// Returns the structure of the file, a new one if it has none.
QPDFObjectHandle RootOf(QPDF& file) {
    auto catalog = file.getRoot();
    auto root = catalog.getKey("/StructTreeRoot");
    if (root.isDictionary()) return root;
    root = file.makeIndirectObject(QPDFObjectHandle::parse("<</Type/StructTreeRoot/K []>>"));
    catalog.replaceKey("/StructTreeRoot", root);
    return root;
}

QPDFObjectHandle ParentTreeOf(QPDF& file, QPDFObjectHandle root) {
    auto tree = root.getKey("/ParentTree");
    if (tree.isDictionary()) return tree;
    tree = QPDFNumberTreeObjectHelper::newEmpty(file).getObjectHandle();
    root.replaceKey("/ParentTree", tree);
    return tree;
}

/// The first key that no entry of the tree has.
long long NextKey(QPDF& file, const QPDFObjectHandle& tree) {
    QPDFNumberTreeObjectHelper numbers(tree, file);
    auto last = numbers.last();
    return last == numbers.end() ? 0 : last->first + 1;
}

/// Makes the kids an array, which one alone need not be.
QPDFObjectHandle KidsOf(QPDFObjectHandle root) {
    auto kids = root.getKey("/K");
    if (kids.isArray()) return kids;
    auto array = QPDFObjectHandle::newArray();
    if (!kids.isNull()) array.appendItem(kids);
    root.replaceKey("/K", array);
    return array;
}

/// Returns the one element of type Document that holds the whole structure; null if the structure
/// is another one.
QPDFObjectHandle DocumentOf(QPDFObjectHandle root) {
    auto kid = root.getKey("/K");
    if (kid.isArray() && kid.getArrayNItems() == 1) kid = kid.getArrayItem(0);
    const bool isOne =
        kid.isDictionary() && kid.isIndirect() && kid.getKey("/S").isNameAndEquals("/Document");
    return isOne ? kid : QPDFObjectHandle::newNull();
}

/// Adds a Document as a part of another one, or beside what the structure has. Some readers expect
/// that a structure is one element.
void AddDocument(const QPDFObjectHandle& root, QPDFObjectHandle document) {
    auto whole = DocumentOf(root);
    if (whole.isDictionary()) document.replaceKey("/S", QPDFObjectHandle::newName("/Part"));
    auto parent = whole.isDictionary() ? whole : root;
    document.replaceKey("/P", parent);
    KidsOf(parent).appendItem(document);
}

bool IsMarked(QPDF& file) {
    auto marks = file.getRoot().getKey("/MarkInfo");
    return marks.isDictionary() && marks.getKey("/Marked").isBool() &&
           marks.getKey("/Marked").getBoolValue();
}

/// Where only one of the two files is tagged, marks the whole as tagged with parts that may not be.
void MergeMarks(QPDF& file, QPDF& copied) {
    if (IsMarked(file) == IsMarked(copied)) return;
    auto catalog = file.getRoot();
    if (!catalog.getKey("/MarkInfo").isDictionary())
        catalog.replaceKey("/MarkInfo", QPDFObjectHandle::newDictionary());
    for (const char* key : {"/Marked", "/Suspects"})
        catalog.getKey("/MarkInfo").replaceKey(key, QPDFObjectHandle::newBool(true));
}

}  // namespace

void MergeStructure(QPDF& file, QPDF& copied, int firstCopiedPage) {
    MergeMarks(file, copied);
    auto copiedRoot = copied.getRoot().getKey("/StructTreeRoot");
    if (!copiedRoot.isDictionary()) return;
    auto root = RootOf(file);
    auto tree = ParentTreeOf(file, root);
    const long long offset = NextKey(file, tree);
    const auto& pages = file.getAllPages();
    for (auto i = static_cast<std::size_t>(firstCopiedPage); i < pages.size(); ++i)
        MoveKeys(pages[i], offset);

    auto document = file.copyForeignObject(copiedRoot.getKey("/K"));
    // The language of the file is that of the first one.
    if (copied.getRoot().hasKey("/Lang"))
        document.replaceKey("/Lang", file.copyForeignObject(copied.getRoot()).getKey("/Lang"));
    AddDocument(root, document);

    QPDFNumberTreeObjectHelper numbers(tree, file);
    QPDFNumberTreeObjectHelper others(copiedRoot.getKey("/ParentTree"), copied);
    for (const auto& [key, value] : others)
        numbers.insert(key + offset, file.copyForeignObject(value));
    root.replaceKey("/ParentTreeNextKey", QPDFObjectHandle::newInteger(NextKey(file, tree)));
}

}  // namespace pdf
