#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/json/JsonWriter.h"

namespace app {

/// The output of a command as indented JSON. Bytes that are not UTF-8, which paths may have, become
/// U+FFFD.
class JsonAnswer final : public desk::JsonWriter {
public:
    using JsonWriter::JsonWriter;

    void Member(std::string_view key, const std::vector<std::string>& texts);
    /// Writes null for infinities and NaN.
    void Member(std::string_view key, double number);
    using JsonWriter::Member;

    /// Writes a member that is an object; `writeMembers` writes what is in it.
    void Object(std::string_view key, const auto& writeMembers) {
        Key(key);
        BeginObject();
        writeMembers();
        EndObject();
    }
    /// Writes a member that is an array, with an object for each item.
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

/// Prints an object to standard output while its members are written.
void StreamAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers);
/// Prints an object once it is complete, so that nothing is printed where writing it fails.
void PrintAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers);

}  // namespace app
