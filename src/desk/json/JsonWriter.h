#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace desk {

/// Writes JSON piece by piece, so that a large document never stands in memory, neither as a tree
/// nor as text. The caller sees to it that pieces come in an order that makes sense.
class JsonWriter {
public:
    /// Takes the text as it comes, in blocks.
    using Sink = std::function<void(std::string_view)>;

    /// Without blanks, as documents are stored. With an indentation each item stands on a line of
    /// its own, by so many blanks further right than what it is part of.
    explicit JsonWriter(Sink sink, int indentation = 0)
        : sink_(std::move(sink)), indentation_(indentation) {}
    virtual ~JsonWriter() = default;
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    /// Ends the text with a line end, and hands over what there still is of it.
    void Finish();

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }
    /// The next item stands on a line of its own.
    void NewLine() { newLine_ = true; }

    /// Names the next value of an object.
    void Key(std::string_view key);
    void Text(std::string_view text);
    void Flag(bool flag);
    void Whole(std::int64_t number);
    /// A text that reads back as the same bits, always with a point or an exponent: the shortest
    /// or, with an indentation, one with an exponent only below 0.0001 and from 1e15.
    /// Infinities and NaN become the texts "inf", "-inf" and "nan".
    void Number(double number);
    void Null();

    /// Writes a key with a text, a flag or a number.
    template <class Value>
    void Member(std::string_view key, const Value& value) {
        Key(key);
        if constexpr (std::is_same_v<Value, bool>)
            Flag(value);
        else if constexpr (std::is_integral_v<Value>)
            Whole(value);
        else if constexpr (std::is_floating_point_v<Value>)
            Number(value);
        else
            Text(value);
    }

protected:
    /// What is written in place of bytes that are not valid UTF-8. Fails unless it is overridden.
    virtual std::string Mended(std::string_view text) const;

private:
    void Begin(char bracket);
    void End(char bracket);
    void Separate();
    void BreakLine();
    void Flush();
    void Quote(std::string_view text);
    void Escape(char character);

    Sink sink_;
    int indentation_;
    int depth_ = 0;
    std::string out_;  ///< What the sink has not taken yet.
    bool comma_ = false;
    bool newLine_ = false;
};

}  // namespace desk
