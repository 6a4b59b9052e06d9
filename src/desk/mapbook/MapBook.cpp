#include "desk/mapbook/MapBook.h"

#include "desk/objects/Elements.h"
#include "host/Failure.h"

namespace desk {

namespace {

template <class Item>
std::vector<std::string> KeysOf(const std::vector<Item>& items) {
    std::vector<std::string> keys;
    for (const Item& item : items) keys.push_back(item.key);
    return keys;
}

}  // namespace

std::shared_ptr<const MapBookFile> BookSource::File() {
    if (!file_ && !path_.empty()) file_ = std::make_shared<MapBookFile>(ReadMapBookFile(path_));
    return file_;
}

host::Variant LayoutContext::CurrentTemplateKey() {
    if (!ownTemplate_.empty()) return ownTemplate_;
    const auto file = source_->File();
    if (!file || file->currentTemplate.empty()) return host::Empty{};
    return file->currentTemplate;
}

std::string MapBook::TemplateSection(const std::string& templateKey) {
    return FindTemplate(templateKey).section->key;
}

std::string MapBook::SectionBook(const std::string& sectionKey) {
    return FindSection(sectionKey).book->key;
}

std::vector<std::string> MapBook::SectionKeys(const std::string& bookKey) {
    for (const Book& book : Books())
        if (book.key == bookKey) return KeysOf(book.sections);
    Fail("book", bookKey);
}

std::string MapBook::SectionName(const std::string& sectionKey) {
    return FindSection(sectionKey).section->name;
}

std::vector<std::string> MapBook::TemplateKeys(const std::string& sectionKey) {
    return KeysOf(FindSection(sectionKey).section->templates);
}

std::string MapBook::TemplateName(const std::string& templateKey) {
    return FindTemplate(templateKey).item->name;
}

host::Ref<host::IHostObject> MapBook::TemplateLayout(const std::string& templateKey) {
    return std::make_shared<ElementContainer>(FindTemplate(templateKey).item->layout);
}

host::Variant MapBook::SectionStartPage(const std::string& sectionKey) {
    return FindSection(sectionKey).section->startPage;
}

std::vector<std::string> MapBook::SectionPages(const std::string& sectionKey) {
    return FindSection(sectionKey).section->pages;
}

MapBook::SectionPlace MapBook::FindSection(const std::string& key) {
    for (const Book& book : Books())
        for (const BookSection& section : book.sections)
            if (section.key == key) return {&book, &section};
    Fail("section", key);
}

MapBook::TemplatePlace MapBook::FindTemplate(const std::string& key) {
    for (const Book& book : Books())
        for (const BookSection& section : book.sections)
            for (const BookTemplate& item : section.templates)
                if (item.key == key) return {&section, &item};
    Fail("template", key);
}

const std::vector<Book>& MapBook::Books() {
    static const std::vector<Book> kNone;
    const auto file = source_->File();
    return file ? file->books : kNone;
}

void MapBook::Fail(const std::string& kind, const std::string& key) {
    const std::string missing = kind + " with the key \"" + key + "\".";
    const auto file = source_->File();
    throw host::Failure(host::kFailureNotFound, "desk::MapBook",
                        file ? "The map book file \"" + file->path + "\" holds no " + missing
                             : "The document is in no map book, so that there is no " + missing);
}

}  // namespace desk
