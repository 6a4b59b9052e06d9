#include "listings/PageCorrection.h"

#include <limits>

#include "host/Failure.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

using Limits = std::numeric_limits<std::int32_t>;

std::int32_t PageNumber(std::int64_t page) {
    if (page >= Limits::min() && page <= Limits::max()) return static_cast<std::int32_t>(page);
    host::Failure failure(host::kFailureOverflow, "",
                          "A page number in the map book is beyond what a whole number can hold.");
    failure.AddFact("page", std::to_string(page));
    throw failure;
}

// The linked key is tested first: a gazetteer in the linked section itself follows the series.
bool IsSeriesFirst(const std::vector<std::string>& sections, const std::string& linked,
                   const std::string& own) {
    for (const std::string& section : sections) {
        if (section == linked) return true;
        if (section == own) return false;
    }
    return false;
}

// Entries have the form key, "$", number. The page base moves by the place of the template's first
// entry less the number it carries there.
std::int64_t OffsetOfTemplate(const std::vector<std::string>& pages, const std::string& templateKey,
                              host::IHostLocale& locale) {
    std::int32_t number = 0;
    std::int64_t position = 0;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const auto cut = pages[i].find('$');
        number =
            ToLong(cut == std::string::npos ? std::string() : pages[i].substr(cut + 1), locale);
        if (pages[i].substr(0, cut) == templateKey) {
            position = static_cast<std::int64_t>(i) + 1;
            break;
        }
    }
    return position - number;
}

}  // namespace

std::int32_t PageCorrection::Corrected(std::int32_t page) const {
    return PageNumber(std::int64_t{page} + pageBase + seriesFirstPage - 2);
}

PageCorrection MakePageCorrection(const Settings& settings, const SiblingObjects& siblings,
                                  const host::Ref<host::IHostMapFrame>& frame,
                                  host::IHostLocale& locale) {
    PageCorrection correction;
    auto& book = *siblings.mapBook;
    const std::string own =
        book.TemplateSection(ToText(siblings.layoutContext->CurrentTemplateKey(), locale));
    const auto sections = book.SectionKeys(book.SectionBook(own));
    const std::string& linked = settings.mapSeriesSectionKey;
    correction.isByBook = IsSeriesFirst(sections, linked, own);
    if (correction.isByBook) {
        const std::int32_t start = ToLong(book.SectionStartPage(linked), locale);
        correction.pageBase =
            PageNumber(start + OffsetOfTemplate(book.SectionPages(linked),
                                                settings.mapSeriesTemplateKey, locale));
    }
    siblings.seriesManager->ClearFrame();
    siblings.seriesManager->SetFrame(frame);
    correction.seriesFirstPage = ToLong(siblings.seriesManager->FirstPageNumber(), locale);
    return correction;
}

host::Ref<host::IHostIndexGrid> FindIndexGrid(const host::Ref<host::IHostMapFrame>& frame) {
    const auto grids = host::As<host::IHostMapGrids>(frame);
    if (!grids) return nullptr;
    for (std::int32_t i = 0; i < grids->Count(); ++i) {
        auto grid = host::As<host::IHostIndexGrid>(grids->Item(i));
        if (grid && grid->Visible()) return grid;
    }
    return nullptr;
}

}  // namespace gazetteer
