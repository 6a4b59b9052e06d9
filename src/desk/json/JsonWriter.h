#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace desk {

/// Writes JSON as a stream, so that a large document is never held in memory. The caller is
/// responsible for a valid order of calls.
class JsonWriter {
public:
    /// Receives the text in blocks.
    using Sink = std::function<void(std::string_view)>;

    /// With an indentation of 0 the output has no blanks, as in stored documents. With a larger one
    /// each item starts a line, indented by that many blanks per level.
    explicit JsonWriter(Sink sink, int indentation = 0)
        : sink_(std::move(sink)), indentation_(indentation) {}
    virtual ~JsonWriter() = default;
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    /// Writes a line end and passes the rest of the text to the sink.
    void Finish();

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }
    /// Starts a line before the next item.
    void NewLine() { newLine_ = true; }

    void Key(std::string_view key);
    void Text(std::string_view text);
    void Flag(bool flag);
    void Whole(std::int64_t number);
    /// Writes a number that reads back as the same bits, always with a point or an exponent: the
    /// shortest form or, with an indentation, a form with an exponent only below 0.0001 and from
    /// 1e15. Infinities and NaN are written as the texts "inf", "-inf" and "nan".
    void Number(double number);
    void Null();

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
    /// Returns the replacement for a text that is not valid UTF-8. The default throws.
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
    std::string out_;  ///< Not yet passed to the sink.
    bool comma_ = false;
    bool newLine_ = false;
};

}  // namespace desk
