#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desk/files/Files.h"
#include "host/Elements.h"

namespace desk {

class TextEngine;

/// A layout page and the elements on it, lowest first.
/// Sides of a sheet in inches; the largest is the largest that PDF readers show.
inline constexpr double kSmallestSheet = 0.01;
inline constexpr double kLargestSheet = 200;

struct Document {
    std::string title;
    double pageWidth = 8.5;  ///< Inches, as is the height; positive.
    double pageHeight = 11;
    std::vector<host::Ref<host::IHostElement>> elements;
    std::string mapBook;      ///< Path of the map book file, relative to the document's folder, or
                              ///< absolute.
    std::string templateKey;  ///< The document's template in the map book; empty: the book's
                              ///< current one.
    std::string locale;       ///< As for IcuLocale; empty: the user's.
    std::int32_t firstSheet = 0;  ///< Number of the first sheet, from 1; 0: the map book's, or 1.
};

/// Reads a document. Throws host::Failure with one sentence that names the file and the fault if
/// the file is missing, unreadable, not a document of the desk, of a newer format, or damaged. Sets
/// *state, if given, to the state of the file that was read.
Document ReadDocument(const std::string& path, const std::shared_ptr<TextEngine>& engine,
                      FileState* state = nullptr);

/// Replaces the file atomically (see ReplacingFile). If an expected state is given, throws when the
/// file at the path differs from it. The same content gives the same bytes. Returns the new state.
FileState WriteDocument(const Document& document, const std::string& path,
                        const std::optional<FileState>& expected = std::nullopt);

/// Path of the document's map book, relative to the working directory or, above it, absolute; empty
/// without one.
std::string MapBookPath(const Document& document, const std::string& documentPath);

/// Returns a path as the document at documentPath stores it: relative to the document's folder
/// where possible, else absolute.
std::string PathFromDocument(const std::string& path, const std::string& documentPath);

}  // namespace desk
