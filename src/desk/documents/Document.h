#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desk/files/Files.h"
#include "host/Elements.h"

namespace desk {

class TextEngine;

/// What the desk works on: one layout page and the elements on it, lowest first.
struct Document {
    std::string title;
    double pageWidth = 8.5;  ///< Inches, as is the height; positive.
    double pageHeight = 11;
    std::vector<host::Ref<host::IHostElement>> elements;
    std::string mapBook;      ///< Path of the map book's file; from the document's folder, or full.
    std::string templateKey;  ///< The template that the document is; empty: what the book says.
};

/// Reads a document. Fails, in one sentence that names the file and the fault, for a file that is
/// gone or cannot be read, that is no document of the desk, is of a newer format, or is damaged.
/// The state, if asked for, is that of the file as it was read.
Document ReadDocument(const std::string& path, const std::shared_ptr<TextEngine>& engine,
                      FileState* state = nullptr);

/// Replaces the file in one step (see ReplacingFile), if it is the expected one where one is
/// expected. The same content gives the same bytes. Answers the state of the file.
FileState WriteDocument(const Document& document, const std::string& path,
                        const std::optional<FileState>& expected = std::nullopt);

/// The path of the document's map book, seen from where the program runs; empty without one.
std::string MapBookPath(const Document& document, const std::string& documentPath);

/// A path as a document at the other path keeps it: from the document's folder where there is a way
/// from there, else in full.
std::string PathFromDocument(const std::string& path, const std::string& documentPath);

}  // namespace desk
