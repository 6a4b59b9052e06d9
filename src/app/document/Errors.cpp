#include "app/document/Errors.h"

#include <new>

#include "characters/Utf8.h"

namespace app {
namespace {

// Returns a phrase such as: record 17, or: column "Page".
std::string FactPhrase(const host::FailureFact& fact) {
    if (fact.name == "record") return fact.name + ' ' + fact.value;
    return fact.name + " \"" + Shown(fact.value) + '"';
}

}  // namespace

std::string Shown(const std::string& value) {
    constexpr std::size_t kMost = 200;  // Bytes.
    if (value.size() <= kMost) return value;
    std::size_t end = kMost;
    while (end > 0 && (value[end] & 0xC0) == 0x80) --end;  // Does not cut inside a UTF-8 character.
    return value.substr(0, end) + "\u2026";
}

std::string Printable(std::string_view text) {
    std::string printable;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = characters::NextCodePoint(text, at);
        const bool isControl = character < ' ' || (character >= 0x7F && character < 0xA0);
        if (isControl && character != '\n' && character != '\t')
            printable += "\uFFFD";
        else
            printable += text.substr(start, at - start);
    }
    return printable;
}

std::string FailureSentence(const host::Failure& failure) {
    std::string facts;
    for (const auto& fact : failure.facts) {
        if (failure.cause.find('"' + fact.value + '"') != std::string::npos) continue;
        facts += (facts.empty() ? " (" : ", ") + FactPhrase(fact);
    }
    return failure.cause + (facts.empty() ? "" : facts + ')');
}

std::string CurrentSentence() {
    try {
        throw;
    } catch (const host::Failure& failure) {
        return FailureSentence(failure);
    } catch (const std::bad_alloc&) {
        return "There is not enough memory.";
    } catch (const std::exception& error) {
        return error.what();
    }
}

}  // namespace app
