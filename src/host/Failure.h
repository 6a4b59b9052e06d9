#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace host {

/// One fact about a failure for those who can show it: ("column", "Listing"), ("record", "17").
struct FailureFact {
    std::string name;
    std::string value;
};

/// A failed call of the host or of this component. Each procedure that passes it on adds a line to
/// the description; cause and facts keep what the place of the failure recorded.
class Failure : public std::exception {
public:
    Failure(std::int32_t failureNumber, std::string label, std::string text)
        : number(failureNumber),
          source(std::move(label)),
          description(text),
          cause(std::move(text)) {}

    const char* what() const noexcept override { return description.c_str(); }

    /// Value of a fact, or empty if it is not known.
    std::string Fact(const std::string& name) const {
        for (const auto& fact : facts)
            if (fact.name == name) return fact.value;
        return {};
    }

    /// Adds a fact unless one of that name is known: the one nearest to the failure is kept.
    void AddFact(const std::string& name, const std::string& value) {
        for (const auto& fact : facts)
            if (fact.name == name) return;
        facts.push_back({name, value});
    }

    std::int32_t number;           ///< Failure code; negative as a signed number.
    std::string source;            ///< Label of the raising operation. Shown to nobody.
    std::string description;       ///< The text with the call stack lines added so far.
    std::string cause;             ///< The first text of the failure, as it was raised.
    int line = 0;                  ///< Source line of the raise, 0 when none is known.
    bool errorBlockAdded = false;  ///< The heading with number and text is in the description.
    std::vector<FailureFact> facts;
};

/// Failure codes that the host's own calls use.
inline constexpr auto kFailureUnspecified = static_cast<std::int32_t>(0x80004005U);
inline constexpr auto kFailureOutOfMemory = static_cast<std::int32_t>(0x8007000EU);
inline constexpr auto kFailureTypeMismatch = static_cast<std::int32_t>(0x80020005U);
inline constexpr auto kFailureOverflow = static_cast<std::int32_t>(0x8002000AU);
inline constexpr auto kFailureNotFound = static_cast<std::int32_t>(0x80070002U);

}  // namespace host
