#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Elements.h"

namespace desk {

/// A template and the elements of its layout, lowest first.
struct BookTemplate {
    std::string key;
    std::string name;
    std::vector<host::Ref<host::IHostElement>> layout;
};

struct BookSection {
    std::string key;
    std::string name;
    std::int32_t startPage = 1;      ///< Page number of the section's first page.
    std::vector<std::string> pages;  ///< In page order: template key, "$", number.
    std::vector<BookTemplate> templates;
};

struct Book {
    std::string key;
    std::vector<BookSection> sections;
};

struct MapBookFile {
    std::string path;
    std::string currentTemplate;  ///< Empty if the file names none.
    std::vector<Book> books;
    std::vector<std::string> indexLayers;  ///< Paths of the tables of all index layers.
};

/// Reads a map book file. Keys of books, of sections and of templates must be unique among all of
/// their kind. Does not open index layer tables. Throws host::Failure with one sentence that names
/// the file, the place and the fault.
MapBookFile ReadMapBookFile(const std::string& path);

}  // namespace desk
