#include "app/document/Errors.h"

#include <new>

namespace app {
namespace {

// "record 17", but texts in quotation marks.
std::string FactPhrase(const host::FailureFact& fact) {
    if (fact.name == "record") return fact.name + ' ' + fact.value;
    return fact.name + " \"" + Shown(fact.value) + '"';
}

bool ContinuesCharacter(char byte) {
    return (byte & 0xC0) == 0x80;
}

}  // namespace

std::string Shown(const std::string& value) {
    constexpr std::size_t kMost = 200;  // Bytes.
    if (value.size() <= kMost) return value;
    std::size_t end = kMost;
    while (end > 0 && ContinuesCharacter(value[end])) --end;
    return value.substr(0, end) + "\u2026";
}

std::string FailureSentence(const host::Failure& failure) {
    std::string facts;
    for (const auto& fact : failure.facts) {
        // The sentence may name the fact already.
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
