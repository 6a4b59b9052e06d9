#pragma once

#include <string>

#include "app/document/Options.h"
#include "desk/documents/Document.h"
#include "host/Host.h"

/// What stands on a sheet around the gazetteer: a running head with the first and last listing of
/// the page, and the sheet's number. Ordinary text elements of the layout page, told by their tags;
/// the gazetteer never touches them.
namespace app {

/// Adds both to a document whose gazetteer has this frame: the head above it, the number below.
void AddPageFurniture(host::IHost& host, desk::Document& document, const FrameOption& frame);

/// The document has one of the two.
bool HasPageFurniture(const desk::Document& document);

/// Fills whatever of the two the document has. The head is cut with an ellipsis to the width that
/// it was given.
void FillPageFurniture(host::IHost& host, desk::Document& document, const std::string& first,
                       const std::string& last, const std::string& number, double width);

}  // namespace app
