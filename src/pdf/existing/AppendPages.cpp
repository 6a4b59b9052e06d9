#include "pdf/existing/AppendPages.h"

#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFNameTreeObjectHelper.hh>
#include <qpdf/QPDFNumberTreeObjectHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageLabelDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include "pdf/existing/MergedClaims.h"
#include "pdf/existing/MergedStructure.h"
#include "pdf/existing/OpenFile.h"

namespace pdf {
namespace {

/// Passes what a writer writes on to an output.
class ToOutput final : public Pipeline {
public:
    explicit ToOutput(Output& output) : Pipeline("output", nullptr), output_(output) {}
    void write(const unsigned char* data, std::size_t size) override {
        output_.Write({reinterpret_cast<const char*>(data), size});
    }
    void finish() override {}

private:
    Output& output_;
};

QPDFObjectHandle Real(double value) {
    constexpr int kDecimals = 2;
    return QPDFObjectHandle::newReal(value, kDecimals);
}

QPDFObjectHandle PlaceOf(const Destination& destination, const QPDFObjectHandle& page) {
    auto place = QPDFObjectHandle::newArray();
    place.appendItem(page);
    place.appendItem(QPDFObjectHandle::newName(destination.view ? "/FitR" : "/Fit"));
    if (!destination.view) return place;
    for (const double edge : {destination.view->left, destination.view->bottom,
                              destination.view->right, destination.view->top})
        place.appendItem(Real(edge));
    return place;
}

/// Adds names that the file does not have yet.
void AddDestinations(QPDF& file, const std::vector<Destination>& destinations) {
    if (destinations.empty()) return;
    auto catalog = file.getRoot();
    if (!catalog.getKey("/Names").isDictionary())
        catalog.replaceKey("/Names", QPDFObjectHandle::newDictionary());
    auto names = catalog.getKey("/Names");
    if (!names.getKey("/Dests").isDictionary())
        names.replaceKey("/Dests", QPDFNameTreeObjectHelper::newEmpty(file).getObjectHandle());
    QPDFNameTreeObjectHelper tree(names.getKey("/Dests"), file);
    const auto& pages = file.getAllPages();
    for (const Destination& destination : destinations)
        tree.insert(destination.name,
                    PlaceOf(destination, pages.at(static_cast<std::size_t>(destination.page))));
}

/// Adds the labels of another file's pages, which follow the given number of pages.
void AddLabels(QPDF& file, QPDF& other, long long pages) {
    auto catalog = file.getRoot();
    if (!catalog.getKey("/PageLabels").isDictionary())
        catalog.replaceKey("/PageLabels",
                           QPDFNumberTreeObjectHelper::newEmpty(file).getObjectHandle());
    QPDFNumberTreeObjectHelper labels(catalog.getKey("/PageLabels"), file);
    const auto usual = QPDFObjectHandle::parse("<</S/D>>");
    if (!labels.hasIndex(0)) labels.insert(0, usual);
    auto first = QPDFPageLabelDocumentHelper(other).getLabelForPage(0);
    labels.insert(pages, first.isDictionary() ? first : usual);
}

/// Returns the root of the bookmarks, a new one if there is none.
QPDFObjectHandle OutlineOf(QPDF& file) {
    auto catalog = file.getRoot();
    if (!catalog.getKey("/Outlines").isDictionary())
        catalog.replaceKey("/Outlines", file.makeIndirectObject(
                                            QPDFObjectHandle::parse("<</Type/Outlines/Count 0>>")));
    return catalog.getKey("/Outlines");
}

/// Adds a bookmark to a page, and below it, closed, the bookmarks of another file.
void AddBookmarks(QPDF& file, QPDF& other, const std::string& title, const QPDFObjectHandle& page) {
    auto outline = OutlineOf(file);
    auto item = file.makeIndirectObject(QPDFObjectHandle::newDictionary());
    item.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(title));
    item.replaceKey("/Parent", outline);
    item.replaceKey("/Dest", PlaceOf({}, page));
    auto last = outline.getKey("/Last");
    if (last.isDictionary()) {
        item.replaceKey("/Prev", last);
        last.replaceKey("/Next", item);
    } else {
        outline.replaceKey("/First", item);
    }
    outline.replaceKey("/Last", item);
    auto count = outline.getKey("/Count");
    if (count.isInteger() && count.getIntValue() >= 0)
        outline.replaceKey("/Count", QPDFObjectHandle::newInteger(count.getIntValue() + 1));

    auto others = other.getRoot().getKey("/Outlines");
    if (!others.isDictionary() || !others.getKey("/First").isDictionary()) return;
    auto copied = file.copyForeignObject(others);
    item.replaceKey("/First", copied.getKey("/First"));
    item.replaceKey("/Last", copied.getKey("/Last"));
    long long below = 0;
    for (auto child = copied.getKey("/First"); child.isDictionary();
         child = child.getKey("/Next")) {
        child.replaceKey("/Parent", item);
        ++below;
    }
    item.replaceKey("/Count", QPDFObjectHandle::newInteger(-below));
}

void Write(QPDF& file, Output& output) {
    // The writer fills in the size only where there is one, which a damaged file may lack.
    file.getTrailer().replaceKey("/Size", QPDFObjectHandle::newInteger(0));
    ToOutput pipeline(output);
    QPDFWriter writer(file);
    writer.setOutputPipeline(&pipeline);
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setDecodeLevel(qpdf_dl_none);
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setMinimumPDFVersion("1.7");
    writer.setNewlineBeforeEndstream(true);  // PDF/A asks for it.
    writer.setDeterministicID(true);
    writer.write();
}

}  // namespace

void AppendPages(const std::string& first, const std::string& other, const std::string& title,
                 const std::vector<Destination>& destinations, Output& output) try {
    const auto file = OpenFile(first);
    // What is written would not be protected, which the owner did not want.
    if (file->isEncrypted())
        throw UnreadableFile(first, "it is protected by a password of its owner");
    const auto added = OpenFile(other);
    const auto pages = static_cast<int>(file->getAllPages().size());
    AddLabels(*file, *added, pages);
    QPDFPageDocumentHelper merged(*file);
    for (const auto& page : QPDFPageDocumentHelper(*added).getAllPages())
        merged.addPage(page, false);
    AddDestinations(*file, destinations);
    AddBookmarks(*file, *added, title, file->getAllPages().at(static_cast<std::size_t>(pages)));
    MergeStructure(*file, *added, pages);
    MergeClaims(*file, *added);
    Write(*file, output);
} catch (const QPDFExc& error) {
    throw UnreadableFile(first, error.getMessageDetail());
}

}  // namespace pdf
