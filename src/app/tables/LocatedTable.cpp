#include "app/tables/LocatedTable.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>
#include <set>

#include "app/document/Errors.h"
#include "app/tables/BookFile.h"
#include "app/tables/FieldText.h"
#include "app/tables/LocateJob.h"
#include "characters/FoldCase.h"
#include "desk/components/GisLibrary.h"

namespace app {
namespace {

std::string Counted(std::int64_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

// A label that is written as a whole number is one, so that it is sorted by its value.
host::Variant ValueOf(const std::string& label) {
    std::int32_t number = 0;
    const char* const end = label.data() + label.size();
    const auto parsed = std::from_chars(label.data(), end, number);
    if (parsed.ec == std::errc() && parsed.ptr == end && std::to_string(number) == label)
        return number;
    return label;
}

std::string NameFor(const FeatureOptions& features, const gis::SourceTable& table) {
    if (!features.name.empty()) return features.name;
    for (const char* const name : {"Listing", "Name"})
        if (table.FindField(name) >= 0) return name;
    throw UsageError(table.Path() +
                     " has no field \"name\"; --name names the one that is listed. "
                     "Its fields are " +
                     FieldsOf(table) + '.');
}

gis::LocatedLayer LayerOf(const FeatureOptions& features, const std::vector<std::string>& apart,
                          const host::Ref<host::IHostLocale>& locale) {
    gis::LocatedLayer layer;
    static_cast<gis::LayerOfSource&>(layer) = LayerAt(features.source);
    layer.where = features.where;
    const auto table = desk::LoadGisModule("Reading " + layer.Text())
                           .OpenTable(layer.source, layer.layer, layer.where);
    for (const auto& field : apart)
        layer.apart.push_back(table->FindField(field) < 0 ? std::string() : field);
    const auto text =
        std::make_shared<FieldText>("--name", NameFor(features, *table), table, locale);
    layer.listingOf = [text](const host::Ref<host::IHostRow>& row) { return text->Of(row); };
    return layer;
}

// Layers with the same constants have their names in common.
std::size_t GroupOf(const std::vector<FeatureOptions>& features, std::size_t layer) {
    std::size_t group = 0;
    while (features[group].constants != features[layer].constants) ++group;
    return group;
}

void CheckApart(const std::vector<std::string>& apart, const gis::LocateJob& job) {
    for (std::size_t i = 0; i < apart.size(); ++i)
        if (std::ranges::all_of(job.features,
                                [&](const auto& layer) { return layer.apart[i].empty(); }))
            throw UsageError("--apart " + Shown(apart[i]) + ": no layer has such a field.");
}

// Throws for two fields of one name.
void CheckDistinct(const std::vector<OutputField>& fields) {
    std::set<std::string> names;
    for (const auto& field : fields)
        if (!names.insert(characters::FoldCase(field.name)).second)
            throw UsageError("The table would have two fields \"" + field.name +
                             "\"; --set and --apart must name others.");
}

std::string Joined(const std::vector<std::string>& values) {
    std::string joined;
    for (const auto& value : values)
        if (!value.empty()) joined += (joined.empty() ? "" : ", ") + value;
    return joined;
}

// The pages, in brackets, of the first few sheets.
std::string Listed(const std::vector<std::string>& pages) {
    constexpr std::size_t kShown = 10;
    std::string list;
    for (std::size_t i = 0; i < std::min(pages.size(), kShown); ++i)
        list += (i == 0 ? "" : ", ") + pages[i];
    return pages.size() > kShown ? list + ", ..." : list;
}

}  // namespace

LocatedTable::LocatedTable(const LocateOptions& options, const host::Ref<host::IHostLocale>& locale,
                           const Progress& progress)
    : options_(options) {
    const auto grid = GridOf(options);
    auto job = JobOf(options, grid);
    for (std::size_t i = 0; i < options.features.size(); ++i) {
        job.features.push_back(LayerOf(options.features[i], options.apart, locale));
        job.features.back().group = GroupOf(options.features, i);
        layers_.push_back(job.features.back().Text());
        for (const auto& constant : options.features[i].constants)
            if (std::ranges::find(constants_, constant.first) == constants_.end())
                constants_.push_back(constant.first);
    }
    CheckApart(options.apart, job);
    job.progress = [&](std::size_t, std::int64_t read, std::int64_t count) {
        progress(read, count);
    };
    result_ = desk::LoadGisModule("Locating features").Locate(job);
    const bool isOwn = !options.cells.empty();
    rowLabels_ = isOwn ? result_.rowLabels : grid.rows;
    columnLabels_ = isOwn ? result_.columnLabels : grid.columns;
    if (!options_.book.empty()) CheckBook();
    NameListings();
    if (options_.initial) letters_ = std::make_unique<desk::IndexLetters>(options_.locale);
    hasParts_ = std::ranges::any_of(result_.listings, [](const auto& l) { return l.part > 0; });
    CheckDistinct(Fields());
}

// Listings of one name are told apart by fields, and else by a number.
void LocatedTable::NameListings() {
    std::map<std::pair<std::size_t, std::string>, int> counts;
    for (const auto& listing : result_.listings) ++counts[{listing.group, listing.name}];
    for (const auto& listing : result_.listings) {
        std::string name = listing.name;
        const bool isShared = counts[{listing.group, listing.name}] > 1;
        const std::string apart = Joined(listing.apart);
        if (isShared && !apart.empty()) name += " (" + apart + ')';
        if (listing.part > 0) name += " (" + std::to_string(listing.part) + ')';
        names_.push_back(std::move(name));
    }
}

std::vector<OutputField> LocatedTable::Fields() const {
    std::vector<OutputField> fields = {{"Listing"}, {"Page"}};
    if (!rowLabels_.empty()) fields.insert(fields.end(), {{"Row"}, {"Column"}});
    for (const auto& field : options_.apart) fields.push_back({field});
    if (hasParts_) fields.push_back({"Part"});
    if (letters_) fields.push_back({"Initial"});
    for (const auto& constant : constants_) fields.push_back({constant});
    return fields;
}

host::Variant LocatedTable::Constant(std::size_t group, const std::string& field) const {
    for (const auto& [name, value] : options_.features[group].constants)
        if (name == field) return value;
    return std::string();
}

void LocatedTable::CheckBook() const {
    const auto first = ValueOf(result_.pages.front());
    const auto* const number = std::get_if<std::int32_t>(&first);
    for (std::size_t i = 0; i < result_.pages.size(); ++i)
        if (number == nullptr ||
            result_.pages[i] != std::to_string(*number + static_cast<std::int32_t>(i)))
            throw UsageError("--book " + Shown(options_.book) +
                             ": a map book counts the pages of its sheets one by one, but " +
                             options_.sheets + " has the page \"" + result_.pages[i] +
                             (i == 0 ? "\"." : "\" behind \"" + result_.pages[i - 1] + "\"."));
    if (!result_.isInPageOrder)
        throw UsageError("--book " + Shown(options_.book) + ": the sheets of " + options_.sheets +
                         " do not stand in the order of their pages.");
}

void LocatedTable::WriteMapBook() const {
    if (options_.book.empty()) return;
    WriteBook({options_.book, options_.sheets, std::ssize(result_.pages),
               std::get<std::int32_t>(ValueOf(result_.pages.front())), rowLabels_, columnLabels_});
}

void LocatedTable::AddPlace(const gis::Reference& reference, Values& values) const {
    if (!options_.book.empty()) {
        values.emplace_back(static_cast<std::int32_t>(reference.sheet) + 1);
        if (!rowLabels_.empty())
            values.insert(values.end(), {reference.row + 1, reference.column + 1});
        return;
    }
    values.push_back(ValueOf(result_.pages[reference.sheet]));
    if (rowLabels_.empty()) return;
    values.push_back(ValueOf(rowLabels_[static_cast<std::size_t>(reference.row)]));
    values.push_back(ValueOf(columnLabels_[static_cast<std::size_t>(reference.column)]));
}

void LocatedTable::ForEach(const RowTaker& take) const {
    Values values;
    for (const auto& reference : result_.references) {
        const auto& listing = result_.listings[reference.listing];
        values.clear();
        values.emplace_back(names_[reference.listing]);
        AddPlace(reference, values);
        values.insert(values.end(), listing.apart.begin(), listing.apart.end());
        if (hasParts_) values.emplace_back(std::max(listing.part, 1));
        if (letters_) values.emplace_back(desk::InitialOf(*letters_, listing.name));
        for (const auto& constant : constants_) values.push_back(Constant(listing.group, constant));
        take(values);
    }
}

std::string LocatedTable::Summary() const {
    std::int64_t features = 0;
    for (const auto& counts : result_.counts) features += counts.read;
    return Counted(features, "feature", "features") + " on " +
           Counted(std::ssize(result_.pages), "sheet", "sheets") + ": " +
           Counted(std::ssize(result_.listings), "listing", "listings") + ", " +
           Counted(std::ssize(result_.references), "reference", "references") + '.';
}

std::vector<std::string> LocatedTable::Warnings() const {
    auto warnings = result_.notes;
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        const auto& counts = result_.counts[i];
        const auto add = [&](const gis::LeftOut& features, const char* one, const char* many) {
            features.Tell(warnings, layers_[i], one, many);
        };
        add(counts.unnamed, "feature without a name left out", "features without a name left out");
        add(counts.withoutGeometry, "feature without a place left out",
            "features without a place left out");
        add(counts.broken, "feature with a broken geometry left out",
            "features with broken geometries left out");
        add(counts.withoutLength, "line without length left out", "lines without length left out");
        add(counts.outside, "feature on no sheet left out", "features on no sheet left out");
        if (options_.cells.empty())
            add(counts.inNoSquare, "feature that only touches a sheet left out",
                "features that only touch a sheet left out");
        else
            add(counts.inNoSquare, "feature in no square of a sheet left out",
                "features in no square of a sheet left out");
        add(counts.mended, "feature had a broken geometry, which was mended",
            "features had broken geometries, which were mended");
    }
    if (!result_.emptySheets.empty())
        warnings.push_back(Counted(std::ssize(result_.emptySheets), "sheet has", "sheets have") +
                           " no feature: page " + Listed(result_.emptySheets) + '.');
    return warnings;
}

}  // namespace app
