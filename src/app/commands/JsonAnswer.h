#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/json/JsonWriter.h"

namespace app {

/// A command's output as indented JSON. Bytes that are not UTF-8, as in paths, become U+FFFD.
class JsonAnswer final : public desk::JsonWriter {
public:
    using JsonWriter::JsonWriter;

    void Member(std::string_view key, const std::vector<std::string>& texts);
    /// Writes null for infinities and NaN.
    void Member(std::string_view key, double number);
    using JsonWriter::Member;

    void Object(std::string_view key, const auto& writeMembers) {
        Key(key);
        BeginObject();
        writeMembers();
        EndObject();
    }
    void Objects(std::string_view key, const auto& items, const auto& writeMembersOf) {
        Key(key);
        BeginArray();
        for (const auto& item : items) {
            BeginObject();
            writeMembersOf(item);
            EndObject();
        }
        EndArray();
    }

protected:
    std::string Mended(std::string_view text) const override;
};

/// Prints an object to standard output while it is written.
void StreamAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers);
/// Prints an object when it is complete; prints nothing if writing it fails.
void PrintAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers);

}  // namespace app
