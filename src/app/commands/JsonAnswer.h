#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/json/JsonWriter.h"

namespace app {

/// A command's answer as JSON, indented for people. U+FFFD stands for bytes of paths that are not
/// UTF-8.
class JsonAnswer final : public desk::JsonWriter {
public:
    using JsonWriter::JsonWriter;

    void Member(std::string_view key, const std::vector<std::string>& texts);
    /// Null for infinities and NaN.
    void Member(std::string_view key, double number);
    using JsonWriter::Member;

    /// A member that is an object with these members.
    void Object(std::string_view key, const auto& writeMembers) {
        Key(key);
        BeginObject();
        writeMembers();
        EndObject();
    }
    /// A member that is an array, with an object for each item.
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

/// Prints an object with these members, as they come.
void StreamAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers);
/// The same once they are complete, so that nothing is printed where writing them fails.
void PrintAnswer(int indentation, const std::function<void(JsonAnswer&)>& writeMembers);

}  // namespace app
