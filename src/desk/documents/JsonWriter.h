#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace desk {

/// Writes JSON piece by piece, so that a large document never stands in memory as a tree. The
/// caller sees to it that pieces come in an order that makes sense.
class JsonWriter {
public:
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

    const std::string& Result() const { return out_; }
    std::string TakeResult();

private:
    void Separate();
    void Quote(std::string_view text);
    void Escape(char character);

    std::string out_;
    bool comma_ = false;
    bool newLine_ = false;
};

}  // namespace desk
