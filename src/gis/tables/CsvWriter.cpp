#include "gis/tables/CsvWriter.h"

#include <utility>

#include "gis/tables/Values.h"

namespace gis {

CsvWriter::CsvWriter(std::string path, const std::vector<SourceField>& fields)
    : path_(std::move(path)) {
    for (const auto& field : fields) {
        if (&field != fields.data()) content_ += ',';
        AddText(field.name);
    }
    content_ += '\n';
}

void CsvWriter::Add(const std::vector<host::Variant>& values) {
    for (const auto& value : values) {
        if (&value != values.data()) content_ += ',';
        if (const auto* const text = std::get_if<std::string>(&value))
            AddText(*text);
        else
            content_ += WholeText(value);
    }
    // A line with nothing would be no record.
    if (values.size() == 1 && content_.ends_with('\n')) content_ += "\"\"";
    content_ += '\n';
}

void CsvWriter::AddText(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        content_ += text;
        return;
    }
    content_ += '"';
    for (const char letter : text) {
        if (letter == '"') content_ += '"';
        content_ += letter;
    }
    content_ += '"';
}

}  // namespace gis
