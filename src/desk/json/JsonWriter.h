#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace desk {

/// Writes JSON piece by piece, so that a large document never stands in memory, neither as a tree
/// nor as text. The caller sees to it that pieces come in an order that makes sense.
class JsonWriter {
public:
    /// Takes the text as it comes, in blocks.
    using Sink = std::function<void(std::string_view)>;

    explicit JsonWriter(Sink sink) : sink_(std::move(sink)) {}

    /// Ends the text with a line end, and hands over what there still is of it.
    void Finish();

    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();
    /// The next item stands on a line of its own.
    void NewLine() { newLine_ = true; }

    /// Names the next value of an object.
    void Key(std::string_view key);
    /// Fails for bytes that are not valid UTF-8.
    void Text(std::string_view text);
    void Flag(bool flag);
    void Whole(std::int32_t number);
    /// The shortest text that reads back as the same bits, always with a point or an exponent.
    /// Not for infinities and NaN.
    void Number(double number);
    void Null();

    void Member(std::string_view key, std::string_view text);
    void Member(std::string_view key, const char* text) { Member(key, std::string_view(text)); }
    void Member(std::string_view key, bool flag);
    void Member(std::string_view key, std::int32_t number);

private:
    void Separate();
    void Flush();
    void Quote(std::string_view text);
    void Escape(char character);

    Sink sink_;
    std::string out_;  ///< What the sink has not taken yet.
    bool comma_ = false;
    bool newLine_ = false;
};

}  // namespace desk
