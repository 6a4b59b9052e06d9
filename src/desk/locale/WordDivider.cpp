#include "desk/locale/WordDivider.h"

#include <cstdio>
#include <cstdlib>
#include <hyphen.h>
#include <unicode/unistr.h>

#include "desk/locale/HyphenationFile.h"

namespace desk {
namespace {

/// No language writes longer words, in characters; libhyphen's time grows with them.
constexpr std::size_t kLongestWord = 200;

struct FreeDictionary {
    void operator()(HyphenDict* dictionary) const { hnj_hyphen_free(dictionary); }
};
using Dictionary = std::unique_ptr<HyphenDict, FreeDictionary>;

/// Null if libhyphen refuses it.
Dictionary ReadDictionary(std::string file) {
    const std::unique_ptr<std::FILE, decltype(&std::fclose)> stream(
        fmemopen(file.data(), file.size(), "r"), &std::fclose);
    return Dictionary(stream ? hnj_hyphen_load_file(stream.get()) : nullptr);
}

/// What libhyphen tells beside the divisions: the changed spelling at each, or null.
class Spellings {
public:
    explicit Spellings(std::size_t count) : count_(count) {}
    Spellings(const Spellings&) = delete;
    Spellings& operator=(const Spellings&) = delete;
    ~Spellings() {
        for (std::size_t i = 0; texts != nullptr && i < count_; ++i) std::free(texts[i]);
        std::free(texts);
        std::free(places);
        std::free(lengths);
    }
    bool IsChangedAt(std::size_t index) const {
        return texts != nullptr && texts[index] != nullptr;
    }

    char** texts = nullptr;
    int* places = nullptr;
    int* lengths = nullptr;

private:
    std::size_t count_;
};

}  // namespace

WordDivider::WordDivider(const icu::Locale& locale, const std::filesystem::path& folder) {
    const auto path = HyphenationFile(locale, folder);
    if (!path) return;
    auto patterns = std::make_unique<const PatternFile>(*path);
    UErrorCode status = U_ZERO_ERROR;
    if (patterns->Encoding().empty()) return;
    encoder_.reset(ucnv_open(patterns->Encoding().c_str(), &status));
    if (!encoder_) return;
    // A letter that the patterns' encoding lacks leaves the word whole.
    ucnv_setFromUCallBack(encoder_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &status);
    patterns_ = std::move(patterns);
}

std::vector<std::size_t> WordDivider::Divisions(std::string_view text) {
    std::vector<std::size_t> divisions;
    if (!patterns_) return divisions;
    for (const Word& word : WordsOf(text)) Divide(word, divisions);
    return divisions;
}

void WordDivider::Divide(const Word& word, std::vector<std::size_t>& divisions) {
    if (word.size() > kLongestWord) return;
    const std::string text = Encoded(word);
    if (text.empty()) return;
    constexpr std::size_t kMostWords = 10000;
    if (known_.size() == kMostWords) known_.clear();
    const auto [known, isNew] = known_.try_emplace(text);
    if (isNew) known->second = PlacesIn(text, word.size());
    for (const std::size_t letter : known->second) divisions.push_back(word[letter + 1].start);
}

WordDivider::Places WordDivider::PlacesIn(const std::string& text, std::size_t letters) const {
    const Dictionary dictionary = ReadDictionary(patterns_->For(text));
    if (!dictionary) return {};
    constexpr std::size_t kMore = 5;  // Bytes that libhyphen needs beyond the word's length.
    std::string marks(text.size() + kMore, '\0');
    Spellings spellings(text.size());
    if (hnj_hyphen_hyphenate2(dictionary.get(), text.c_str(), static_cast<int>(text.size()),
                              marks.data(), nullptr, &spellings.texts, &spellings.places,
                              &spellings.lengths) != 0)
        return {};
    // An odd mark at a letter lets the word be divided behind it.
    Places places;
    for (std::size_t i = 0; i + 1 < letters; ++i)
        if ((marks[i] & 1) != 0 && !spellings.IsChangedAt(i)) places.push_back(i);
    return places;
}

/// The word in the patterns' encoding; empty if that lacks one of its letters.
std::string WordDivider::Encoded(const Word& word) const {
    icu::UnicodeString wide;
    for (const WordLetter& letter : word) wide.append(static_cast<UChar32>(letter.character));
    UErrorCode status = U_ZERO_ERROR;
    std::string text(static_cast<std::size_t>(UCNV_GET_MAX_BYTES_FOR_STRING(
                         wide.length(), ucnv_getMaxCharSize(encoder_.get()))),
                     '\0');
    const std::int32_t length =
        ucnv_fromUChars(encoder_.get(), text.data(), static_cast<std::int32_t>(text.size()),
                        wide.getBuffer(), wide.length(), &status);
    text.resize(U_SUCCESS(status) != 0 ? static_cast<std::size_t>(length) : 0);
    return text;
}

}  // namespace desk
