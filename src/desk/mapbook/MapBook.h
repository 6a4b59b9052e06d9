#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desk/mapbook/MapBookFile.h"
#include "host/MapBook.h"

namespace desk {

/// The map book file of a document, read when it is first asked for, so that a document whose book
/// is gone can still be worked on as long as the book is not needed.
class BookSource {
public:
    /// An empty path stands for no map book.
    explicit BookSource(std::string path) : path_(std::move(path)) {}

    /// Null without a map book. Fails like ReadMapBookFile, and tries again when asked again.
    std::shared_ptr<const MapBookFile> File();

private:
    std::string path_;
    std::shared_ptr<const MapBookFile> file_;
};

class LayoutContext final : public host::CVNLayoutContext {
public:
    /// The template that the document names comes before that of the book.
    LayoutContext(std::shared_ptr<BookSource> source, std::string ownTemplate)
        : source_(std::move(source)), ownTemplate_(std::move(ownTemplate)) {}
    /// Empty where no template is on show.
    host::Variant CurrentTemplateKey() override;

private:
    std::shared_ptr<BookSource> source_;
    std::string ownTemplate_;
};

/// Answers from a map book file, or, without one, as a book that holds nothing. Every call fails
/// for a key that is not there, naming it and the file.
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
