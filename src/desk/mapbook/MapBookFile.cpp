#include "desk/mapbook/MapBookFile.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

#include "desk/files/Files.h"
#include "desk/json/Coordinates.h"
#include "desk/json/JsonNode.h"
#include "desk/json/ParsedJson.h"
#include "desk/mapbook/SeriesManager.h"
#include "desk/objects/Depth.h"
#include "desk/objects/Geometry.h"
#include "host/Failure.h"

namespace desk {

namespace {

namespace fs = std::filesystem;

std::string TextOf(const JsonNode& node) {
    return std::string(node.Text());
}

/// Returns the reader's result for each item of an array.
template <class Reader>
auto List(const JsonNode& node, Reader read) {
    std::vector<decltype(read(node))> items;
    node.Each([&](const JsonNode& item) { items.push_back(read(item)); });
    return items;
}

class BookReader {
public:
    explicit BookReader(const std::string& path)
        : path_(path), folder_(fs::path(path).parent_path()) {}

    Book ReadBook(const JsonNode& node) {
        Book book;
        book.key = NewKey(node, bookKeys_);
        book.sections = List(node.Member("sections"),
                             [&](const JsonNode& section) { return ReadSection(section); });
        return book;
    }

    std::vector<std::string> TakeIndexLayers() { return std::move(indexLayers_); }

private:
    BookSection ReadSection(const JsonNode& node) {
        BookSection section;
        section.key = NewKey(node, sectionKeys_);
        section.name = TextOf(node.Member("name"));
        section.startPage = node.Member("startPage").Whole();
        section.pages = List(node.Member("pages"), Page);
        section.templates = List(node.Member("templates"),
                                 [&](const JsonNode& entry) { return ReadTemplate(entry); });
        return section;
    }

    BookTemplate ReadTemplate(const JsonNode& node) {
        BookTemplate result;
        result.key = NewKey(node, templateKeys_);
        result.name = TextOf(node.Member("name"));
        result.layout = Layout(node.Member("layout"));
        return result;
    }

    static std::string NewKey(const JsonNode& node, std::set<std::string>& known) {
        const auto member = node.Member("key");
        std::string key(member.Name());
        if (!known.insert(key).second)
            member.Fail("the key \"" + key + "\" stands in the file twice");
        return key;
    }

    static std::string Page(const JsonNode& node) {
        std::string page = TextOf(node);
        const auto dollar = page.find('$');
        const bool good = dollar != std::string::npos && dollar > 0 && dollar + 1 < page.size() &&
                          page.find_first_not_of("0123456789", dollar + 1) == std::string::npos;
        if (!good) node.Fail("a template's key, \"$\" and a number are expected");
        return page;
    }

    std::vector<host::Ref<host::IHostElement>> Layout(const JsonNode& node) {
        return List(node, [&](const JsonNode& item) { return Element(item); });
    }

    host::Ref<host::IHostElement> Element(const JsonNode& node) {
        const auto kind = node.Member("kind");
        if (kind.Text() == "mapFrame") return Frame(node);
        if (kind.Text() == "group") return Group(node);
        kind.Fail("\"mapFrame\" or \"group\" is expected");
    }

    host::Ref<host::IHostElement> Group(const JsonNode& node) {
        auto group = std::make_shared<GroupElement>();
        if (const auto name = node.Optional("name")) group->SetName(TextOf(*name));
        const auto members = node.Member("members");
        members.CheckNesting(kDeepestNesting, "groups");
        for (const auto& member : Layout(members)) group->Add(member);
        return group;
    }

    host::Ref<host::IHostElement> Frame(const JsonNode& node) {
        const auto series = node.Optional("series");
        const auto frame = series ? Paging(ReadSeries(*series)) : std::make_shared<MapFrame>();
        frame->SetName(TextOf(node.Member("name")));
        if (const auto geometry = node.Optional("geometry"))
            frame->SetGeometry(EnvelopeIn(geometry->Member("envelope")));
        return frame;
    }

    static host::Ref<host::IHostEnvelope> EnvelopeIn(const JsonNode& node) {
        const auto [xmin, ymin, xmax, ymax] = Coordinates<4>(node);
        if (xmin >= xmax || ymin >= ymax)
            node.Fail("left, bottom, right and top are expected, in this order");
        return std::make_shared<Envelope>(xmin, ymin, xmax, ymax);
    }

    static std::shared_ptr<MapFrame> Paging(Series series) {
        if (series.grids.empty()) return std::make_shared<SeriesFrame>(std::move(series));
        return std::make_shared<GridSeriesFrame>(std::move(series));
    }

    Series ReadSeries(const JsonNode& node) {
        Series series;
        series.book = path_;
        if (const auto layer = node.Optional("indexLayer")) {
            series.indexLayer = PathOf(std::string(layer->Name()));
            indexLayers_.push_back(series.indexLayer);
        }
        series.firstPage = node.Member("firstPage").Whole();
        if (const auto grids = node.Optional("grids")) series.grids = List(*grids, Grid);
        return series;
    }

    static host::Ref<host::IHostMapGrid> Grid(const JsonNode& node) {
        const auto shown = node.Optional("visible");
        const bool visible = !shown || shown->Flag();
        if (node.Member("kind").Name() != "index") return std::make_shared<MapGrid>(visible);
        return std::make_shared<IndexGrid>(visible, List(node.Member("rows"), TextOf),
                                           List(node.Member("columns"), TextOf));
    }

    /// Book files may use either separator. A table of a server is not beside the book.
    std::string PathOf(std::string name) const {
        if (IsConnectionName(name)) return name;
        std::replace(name.begin(), name.end(), '\\', '/');
        return (folder_ / name).string();
    }

    std::string path_;
    fs::path folder_;
    std::set<std::string> bookKeys_;
    std::set<std::string> sectionKeys_;
    std::set<std::string> templateKeys_;
    std::vector<std::string> indexLayers_;
};

std::string Fault(simdjson::error_code error, const std::string& text) {
    if (error == simdjson::DEPTH_ERROR) return ": its values stand too deep inside one another";
    const std::string place = PlaceOfJsonFault(text);
    return place.empty() ? ": it holds a number that is too large" : " at " + place;
}

[[noreturn]] void FailWithFault(const std::string& path, const std::string& fault) {
    host::Failure failure(host::kFailureTypeMismatch, "desk::ReadMapBookFile",
                          "The map book file \"" + path + "\" is not valid JSON" + fault + ".");
    failure.AddFact("file", path);
    throw failure;
}

}  // namespace

MapBookFile ReadMapBookFile(const std::string& path) {
    const std::string text = ReadWholeFile(path);
    const ParsedJson json(text);
    if (json.Error() != simdjson::SUCCESS) FailWithFault(path, Fault(json.Error(), text));
    const JsonSource source{path, "In the map book file \"" + path + "\"", ", at "};
    const JsonNode root(json.Root(), source);
    MapBookFile file;
    file.path = path;
    if (const auto current = root.Optional("currentTemplate"))
        file.currentTemplate = current->Text();
    BookReader reader(path);
    file.books =
        List(root.Member("books"), [&](const JsonNode& book) { return reader.ReadBook(book); });
    file.indexLayers = reader.TakeIndexLayers();
    return file;
}

}  // namespace desk
