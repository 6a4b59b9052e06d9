#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Elements.h"

namespace desk {

/// A template with the elements of its layout, lowest first.
struct BookTemplate {
    std::string key;
    std::string name;
    std::vector<host::Ref<host::IHostElement>> layout;
};

struct BookSection {
    std::string key;
    std::string name;
    std::int32_t startPage = 1;      ///< The section's first page in the book.
    std::vector<std::string> pages;  ///< In page order, each a template key, "$" and a number.
    std::vector<BookTemplate> templates;
};

struct Book {
    std::string key;
    std::vector<BookSection> sections;
};

/// The content of a map book file.
struct MapBookFile {
    std::string path;
    std::string currentTemplate;  ///< Empty where the file names none.
    std::vector<Book> books;
};

/// Reads a map book file. Keys are unique: those of all books, of all sections, and of all
/// templates. Index layer tables are not opened. Fails, in one sentence that names the file, the
/// place in it and the fault, for a file that cannot be read or is not of this form.
MapBookFile ReadMapBookFile(const std::string& path);

}  // namespace desk
