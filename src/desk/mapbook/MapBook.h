#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desk/mapbook/MapBookFile.h"
#include "host/MapBook.h"

namespace desk {

/// The map book file of a document. It is read on first use, so that a document whose book is
/// missing can be edited as long as the book is not needed.
class BookSource {
public:
    /// An empty path means no map book.
    explicit BookSource(std::string path) : path_(std::move(path)) {}

    /// Returns null without a map book. Throws like ReadMapBookFile; the next call tries again.
    std::shared_ptr<const MapBookFile> File();

private:
    std::string path_;
    std::shared_ptr<const MapBookFile> file_;
};

class LayoutContext final : public host::CVNLayoutContext {
public:
    /// The document's own template takes precedence over the book's current one.
    LayoutContext(std::shared_ptr<BookSource> source, std::string ownTemplate)
        : source_(std::move(source)), ownTemplate_(std::move(ownTemplate)) {}
    /// Returns Empty if there is no current template.
    host::Variant CurrentTemplateKey() override;

private:
    std::shared_ptr<BookSource> source_;
    std::string ownTemplate_;
};

/// Queries a map book file; without a file, an empty book. Every call throws for an unknown key and
/// names the key and the file.
class MapBook final : public host::CVNMapBook {
public:
    explicit MapBook(std::shared_ptr<BookSource> source) : source_(std::move(source)) {}

    std::string TemplateSection(const std::string& templateKey) override;
    std::string SectionBook(const std::string& sectionKey) override;
    std::vector<std::string> SectionKeys(const std::string& bookKey) override;
    std::string SectionName(const std::string& sectionKey) override;
    std::vector<std::string> TemplateKeys(const std::string& sectionKey) override;
    std::string TemplateName(const std::string& templateKey) override;
    host::Ref<host::IHostObject> TemplateLayout(const std::string& templateKey) override;
    host::Variant SectionStartPage(const std::string& sectionKey) override;
    std::vector<std::string> SectionPages(const std::string& sectionKey) override;

private:
    struct SectionPlace {
        const Book* book;
        const BookSection* section;
    };
    struct TemplatePlace {
        const BookSection* section;
        const BookTemplate* item;
    };
    SectionPlace FindSection(const std::string& key);
    TemplatePlace FindTemplate(const std::string& key);
    const std::vector<Book>& Books();
    [[noreturn]] void Fail(const std::string& kind, const std::string& key);

    std::shared_ptr<BookSource> source_;
};

}  // namespace desk
