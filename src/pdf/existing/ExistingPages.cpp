#include "pdf/existing/ExistingPages.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFPageLabelDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <stdexcept>
#include <utility>

#include "pdf/existing/OpenFile.h"

namespace pdf {
namespace {

std::string Roman(long long number) {
    static constexpr std::pair<int, const char*> kParts[] = {
        {1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"}, {90, "xc"}, {50, "l"},
        {40, "xl"},  {10, "x"},   {9, "ix"},  {5, "v"},    {4, "iv"},  {1, "i"}};
    std::string roman;
    for (const auto& [value, letters] : kParts)
        for (; number >= value; number -= value) roman += letters;
    return roman;
}

/// a to z, then aa to zz, and so on.
std::string Letters(long long number) {
    constexpr int kLetters = 26;
    if (number < 1) return {};
    const auto times = static_cast<std::size_t>((number - 1) / kLetters + 1);
    return std::string(times, static_cast<char>('a' + (number - 1) % kLetters));
}

std::string InCapitals(std::string text) {
    for (char& letter : text) letter = static_cast<char>(letter - 'a' + 'A');
    return text;
}

std::string NameOf(QPDFObjectHandle label) {
    std::string name;
    if (label.getKey("/P").isString()) name = label.getKey("/P").getUTF8Value();
    const long long number =
        label.getKey("/St").isInteger() ? label.getKey("/St").getIntValue() : 1;
    const std::string style = label.getKey("/S").isName() ? label.getKey("/S").getName() : "";
    constexpr long long kMostLetters = 26'000;  // Nobody numbers so; damaged files may.
    if (style == "/D") return name + std::to_string(number);
    if (number > kMostLetters) return name;
    if (style == "/r") return name + Roman(number);
    if (style == "/R") return name + InCapitals(Roman(number));
    if (style == "/a") return name + Letters(number);
    if (style == "/A") return name + InCapitals(Letters(number));
    return name;
}

View Sheet(QPDFPageObjectHelper& page) {
    auto box = page.getTrimBox().getArrayAsRectangle();
    return {box.llx, box.lly, box.urx, box.ury};
}

int QuarterTurns(QPDFPageObjectHelper& page) {
    auto turn = page.getAttribute("/Rotate", false);
    if (!turn.isInteger()) return 0;
    constexpr int kDegrees = 360;
    constexpr int kQuarter = 90;
    const auto degrees = static_cast<int>(turn.getIntValue() % kDegrees);
    return (degrees + kDegrees) % kDegrees / kQuarter;
}

}  // namespace

std::vector<ExistingPage> ReadPages(const std::string& path) try {
    const auto file = OpenFile(path);
    QPDFPageLabelDocumentHelper labels(*file);
    std::vector<ExistingPage> pages;
    for (const auto& object : file->getAllPages()) {
        QPDFPageObjectHelper page(object);
        auto label = labels.getLabelForPage(static_cast<long long>(pages.size()));
        pages.push_back({label.isDictionary() ? NameOf(label) : std::string(), Sheet(page),
                         QuarterTurns(page)});
    }
    return pages;
} catch (const QPDFExc& error) {
    throw UnreadableFile(path, error.getMessageDetail());
} catch (const std::range_error& error) {
    throw UnreadableFile(path, error.what());
}

View OnPage(const ExistingPage& page, const View& part) {
    const View& sheet = page.sheet;
    const double width = sheet.right - sheet.left;
    const double height = sheet.top - sheet.bottom;
    View turned = part;
    if (page.quarterTurns == 1)
        turned = {width - part.top, part.left, width - part.bottom, part.right};
    if (page.quarterTurns == 2)
        turned = {width - part.right, height - part.top, width - part.left, height - part.bottom};
    if (page.quarterTurns == 3)
        turned = {part.bottom, height - part.right, part.top, height - part.left};
    return {sheet.left + turned.left, sheet.bottom + turned.bottom, sheet.left + turned.right,
            sheet.bottom + turned.top};
}

}  // namespace pdf
