#include "desk/mapbook/MapBookFile.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

#include "desk/files/Files.h"
#include "desk/mapbook/BookNode.h"
#include "desk/mapbook/SeriesFrame.h"
#include "host/Failure.h"

namespace desk {

namespace {

namespace fs = std::filesystem;

/// Builds the layout of one template after another.
class LayoutReader {
public:
    explicit LayoutReader(fs::path folder) : folder_(std::move(folder)) {}

    std::vector<host::Ref<host::IHostElement>> Layout(const BookNode& node) const {
        std::vector<host::Ref<host::IHostElement>> elements;
        for (const auto& item : node.Items()) elements.push_back(Element(item));
        return elements;
    }

private:
    host::Ref<host::IHostElement> Element(const BookNode& node) const {
        const auto kind = node.Member("kind");
        if (kind.Text() == "mapFrame") return Frame(node);
        if (kind.Text() == "group") return Group(node);
        kind.Fail("\"mapFrame\" or \"group\" is expected");
    }

    host::Ref<host::IHostElement> Group(const BookNode& node) const {
        auto group = std::make_shared<GroupElement>();
        if (node.Has("name")) group->SetName(node.Member("name").Text());
        for (const auto& member : Layout(node.Member("members"))) group->Add(member);
        return group;
    }

    host::Ref<host::IHostElement> Frame(const BookNode& node) const {
        const auto frame = node.Has("series") ? Paging(ReadSeries(node.Member("series")))
                                              : std::make_shared<MapFrame>();
        frame->SetName(node.Member("name").Text());
        return frame;
    }

    static std::shared_ptr<MapFrame> Paging(Series series) {
        if (series.grids.empty()) return std::make_shared<SeriesFrame>(std::move(series));
        return std::make_shared<GridSeriesFrame>(std::move(series));
    }

    Series ReadSeries(const BookNode& node) const {
        Series series;
        if (node.Has("indexLayer")) series.indexLayer = PathOf(node.Member("indexLayer").Name());
        series.firstPage = node.Member("firstPage").Whole();
        if (!node.Has("grids")) return series;
        for (const auto& grid : node.Member("grids").Items()) series.grids.push_back(Grid(grid));
        return series;
    }

    static host::Ref<host::IHostMapGrid> Grid(const BookNode& node) {
        const bool visible = !node.Has("visible") || node.Member("visible").Flag();
        if (node.Member("kind").Name() != "index") return std::make_shared<MapGrid>(visible);
        return std::make_shared<IndexGrid>(visible, Labels(node.Member("rows")),
                                           Labels(node.Member("columns")));
    }

    static std::vector<std::string> Labels(const BookNode& node) {
        std::vector<std::string> labels;
        for (const auto& label : node.Items()) labels.push_back(label.Text());
        return labels;
    }

    /// Book files come from systems with either separator.
    std::string PathOf(std::string name) const {
        std::replace(name.begin(), name.end(), '\\', '/');
        return (folder_ / name).string();
    }

    fs::path folder_;
};

class BookReader {
public:
    explicit BookReader(const std::string& path) : layouts_(fs::path(path).parent_path()) {}

    Book ReadBook(const BookNode& node) {
        Book book;
        book.key = NewKey(node, bookKeys_);
        for (const auto& section : node.Member("sections").Items())
            book.sections.push_back(ReadSection(section));
        return book;
    }

private:
    BookSection ReadSection(const BookNode& node) {
        BookSection section;
        section.key = NewKey(node, sectionKeys_);
        section.name = node.Member("name").Text();
        section.startPage = node.Member("startPage").Whole();
        for (const auto& page : node.Member("pages").Items()) section.pages.push_back(Page(page));
        for (const auto& entry : node.Member("templates").Items())
            section.templates.push_back(ReadTemplate(entry));
        return section;
    }

    BookTemplate ReadTemplate(const BookNode& node) {
        BookTemplate result;
        result.key = NewKey(node, templateKeys_);
        result.name = node.Member("name").Text();
        result.layout = layouts_.Layout(node.Member("layout"));
        return result;
    }

    static std::string NewKey(const BookNode& node, std::set<std::string>& known) {
        const auto key = node.Member("key");
        if (!known.insert(key.Name()).second)
            key.Fail("the key \"" + key.Name() + "\" stands in the file twice");
        return key.Name();
    }

    static std::string Page(const BookNode& node) {
        std::string page = node.Text();
        const auto dollar = page.find('$');
        const bool good = dollar != std::string::npos && dollar > 0 && dollar + 1 < page.size() &&
                          page.find_first_not_of("0123456789", dollar + 1) == std::string::npos;
        if (!good) node.Fail("a template's key, \"$\" and a number are expected");
        return page;
    }

    LayoutReader layouts_;
    std::set<std::string> bookKeys_;
    std::set<std::string> sectionKeys_;
    std::set<std::string> templateKeys_;
};

/// Line and column, from 1, of a byte of a text.
std::string LineAndColumn(const std::string& text, std::size_t byte) {
    const auto before = text.substr(0, byte > 0 ? byte - 1 : 0);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const auto lineStart = before.rfind('\n') + 1;  // 0 where there is none.
    return "line " + std::to_string(line) + ", column " +
           std::to_string(before.size() - lineStart + 1);
}

nlohmann::json Parse(const std::string& path) {
    const std::string text = ReadWholeFile(path);
    try {
        return nlohmann::json::parse(text);
    } catch (const nlohmann::json::parse_error& error) {
        host::Failure failure(host::kFailureTypeMismatch, "desk::ReadMapBookFile",
                              "The map book file \"" + path + "\" is not valid JSON at " +
                                  LineAndColumn(text, error.byte) + ".");
        failure.AddFact("file", path);
        throw failure;
    }
}

}  // namespace

MapBookFile ReadMapBookFile(const std::string& path) {
    const nlohmann::json json = Parse(path);
    const BookNode root(json, path);
    MapBookFile file;
    file.path = path;
    if (root.Has("currentTemplate")) file.currentTemplate = root.Member("currentTemplate").Text();
    BookReader reader(path);
    for (const auto& book : root.Member("books").Items())
        file.books.push_back(reader.ReadBook(book));
    return file;
}

}  // namespace desk
