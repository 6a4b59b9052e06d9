#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace gazetteer {

/// How a column writes a reference: its expression begins with the page, alone or with a separator
/// and a square behind it.
class ReferencePattern {
public:
    /// Nothing for an expression that begins otherwise.
    static std::optional<ReferencePattern> Of(std::string_view expression);

    bool HasSquares() const { return !pageEnd_.empty(); }
    /// Between page and square.
    const std::string& PageEnd() const { return pageEnd_; }
    /// The expression of the square, such as "$$ROW-$$COLUMN".
    const std::string& Square() const { return square_; }
    /// The two parts of a reference. Without a separator all is page, and the square is empty. The
    /// views are parts of the argument.
    std::pair<std::string_view, std::string_view> PageAndSquare(std::string_view reference) const;
    /// Whether these are the only two parts that it can have: neither the page's name nor a field
    /// of the square holds the separator.
    bool IsClear(std::string_view reference) const;

private:
    ReferencePattern(std::string pageEnd, std::string square, std::size_t endsBehind)
        : pageEnd_(std::move(pageEnd)), square_(std::move(square)), endsBehind_(endsBehind) {}

    std::string pageEnd_;  ///< Empty: there are no squares.
    std::string square_;
    std::size_t endsBehind_;  ///< How often the same stands in the expression of the square.
};

}  // namespace gazetteer
