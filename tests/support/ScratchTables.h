#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desk/tables/PlainObjects.h"
#include "desk/tables/Scratch.h"

namespace support {

/// A table in memory with text fields of these names.
inline host::Ref<host::IHostTable> NewScratchTable(
    const std::vector<std::string>& fieldNames,
    const std::vector<std::vector<host::Variant>>& rows = {}) {
    const auto fields = std::make_shared<desk::Fields>();
    for (const std::string& name : fieldNames) {
        const std::int32_t place = fields->FieldCount();
        fields->SetFieldCount(place + 1);
        fields->SetField(place, std::make_shared<desk::Field>(name, host::kFieldTypeText, 20));
    }
    auto table = std::make_shared<desk::ScratchTable>("T", fields);
    const auto insert = table->Insert(true);
    for (const auto& row : rows) {
        const auto buffer = table->CreateRowBuffer();
        for (std::size_t i = 0; i < row.size(); ++i)
            buffer->SetValue(static_cast<std::int32_t>(i), row[i]);
        insert->InsertRow(buffer);
    }
    return table;
}

}  // namespace support
