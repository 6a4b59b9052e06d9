#pragma once

#include "desk/json/JsonWriter.h"
#include "host/Symbols.h"
#include "host/Variant.h"

namespace desk {

// How values and symbols stand in a document. All fail for an object of a kind that the desk does
// not know, and for sets nested deeper than 100.

void WriteValue(JsonWriter& writer, const host::Variant& value);
void WriteTextSymbol(JsonWriter& writer, const host::IHostTextSymbol& symbol);
void WriteFillSymbol(JsonWriter& writer, const host::IHostFillSymbol& symbol);
void WriteLineSymbol(JsonWriter& writer, const host::IHostLineSymbol& symbol);
/// Any double, also those for which JSON has no number.
void WriteNumber(JsonWriter& writer, double number);

}  // namespace desk
