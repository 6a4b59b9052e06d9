#include "sample/SampleIndex.h"

#include <algorithm>
#include <string>

#include "layout/PageDrawing.h"
#include "layout/PageGroups.h"
#include "layout/RowTree.h"
#include "listings/Combine.h"
#include "listings/IndexTable.h"
#include "model/DefaultSymbols.h"
#include "sample/SampleListings.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

using host::IHostElement;
using host::IHostEnvelope;
using host::IHostGroupElement;
using host::Ref;

constexpr double kBetweenPages = 0.1;

Ref<host::IHostFillSymbol> TransparentFill(host::IHost& host) {
    auto fill = MakeFillSymbol(host, RGB(255, 255, 255));
    auto color = host.NewColor();
    color->SetTransparent(true);
    fill->SetColor(color);
    return fill;
}

Ref<host::IHostTable> SampleTable(host::IHost& host, const Settings& settings) {
    auto table = MakeIndexTempTable(host, settings);
    const auto insert = table->Insert(true);
    const auto listing = table->FindField("Listing");
    const auto page = table->FindField("Page");
    for (const auto& [name, reference] : SampleListings()) {
        const auto row = table->CreateRowBuffer();
        row->SetValue(listing, std::string(name) + kDotsToken);
        row->SetValue(page, std::string(reference));
        insert->InsertRow(row);
    }
    insert->Flush();
    return table;
}

template <class Visit>
void VisitMembers(const IHostGroupElement& group, const Visit& visit) {
    for (std::int32_t i = 0; i < group.Count(); ++i) visit(group.Item(i));
}

// The texts that have at least two dots of a leader.
void AddLeaders(const Ref<IHostElement>& element, const std::string& dots,
                std::vector<Ref<IHostElement>>& found) {
    if (const auto group = host::As<IHostGroupElement>(element))
        VisitMembers(*group, [&](const auto& member) { AddLeaders(member, dots, found); });
    const auto text = host::As<host::IHostTextElement>(element);
    if (text && text->Text().find(dots) != std::string::npos) found.push_back(element);
}

}  // namespace

SampleIndex::SampleIndex(host::IHost& host)
    : host_(host),
      settings_(SampleSettings(host_)),
      transparentFill_(TransparentFill(host_)),
      table_(SampleTable(host_, settings_)) {}

double SampleIndex::PageWidth() {
    return kSampleWidth + 2 * kMargin;
}

double SampleIndex::PageHeight() {
    return kSampleHeight + 2 * kMargin;
}

double SampleIndex::PageLeft(std::size_t page) {
    return static_cast<double>(page) * (PageWidth() + kBetweenPages);
}

void SampleIndex::SetTypesetting(const Typesetting& typesetting) {
    pages_.clear();
    settings_.typesetting = typesetting;
    WorkingResults results;
    results.listings = Listings();
    RunReport report;
    NumberPages(host_, settings_, *NewFrame(0), transparentFill_, results, report);
    for (std::size_t page = 0; page < kPages; ++page) {
        const auto frame = NewFrame(page);
        const auto number = static_cast<std::int32_t>(page) + 1;
        if (number <= results.pageCount)
            DrawPage(host_, settings_, results, transparentFill_, frame, number);
        pages_.push_back(frame);
    }
}

Ref<host::IHostPropertySet> SampleIndex::Listings() {
    const auto rows = OrderIndexTable(host_, settings_, table_);
    RunReport report;
    return PopulateRowValuesPropertySet(host_, settings_, *rows, *table_, report);
}

Ref<IHostGroupElement> SampleIndex::NewFrame(std::size_t page) {
    auto frame = host_.NewGroupElement();
    auto bounds = host_.NewEnvelope();
    const double left = PageLeft(page) + kMargin;
    bounds->SetCoords(left, kMargin, left + kSampleWidth, kMargin + kSampleHeight);
    frame->SetGeometry(bounds);
    return frame;
}

std::vector<Ref<IHostEnvelope>> SampleIndex::Places(Subject subject) {
    std::vector<Ref<IHostElement>> found;
    for (const auto& page : pages_) {
        if (subject == Subject::Headings)
            std::ranges::copy(MembersTagged(*page, {kBreakGroupTag}), std::back_inserter(found));
        if (subject == Subject::WrappedListings)
            std::ranges::copy(MembersTagged(*page, {kRowGroupTag}), std::back_inserter(found));
        const auto& dot = settings_.typesetting.leaderDot;
        if (subject == Subject::Leaders && !dot.empty())
            AddLeaders(
                page,
                dot +
                    std::string(static_cast<std::size_t>(settings_.typesetting.leaderBlanks), ' ') +
                    dot,
                found);
    }
    const auto display = host_.NewApplication()->Document()->ActiveView()->Display();
    std::vector<Ref<IHostEnvelope>> places;
    for (const auto& element : found) {
        auto bounds = host_.NewEnvelope();
        element->MeasureBounds(display, bounds);
        places.push_back(std::move(bounds));
    }
    if (subject != Subject::WrappedListings || places.empty()) return places;
    // A row of one line is the lowest of all.
    const auto height = [](const auto& place) { return place->Height(); };
    const double line = std::ranges::min(places, {}, height)->Height();
    std::erase_if(places, [&](const auto& place) { return place->Height() < 1.5 * line; });
    return places;
}

}  // namespace gazetteer
