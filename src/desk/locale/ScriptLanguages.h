#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace desk {

/// Finds the language in which a text is read aloud, where the script is not one of the language of
/// the document: Greek names in a German index.
class ScriptLanguages {
public:
    /// The tag is that of the document, as in "de-AT"; empty: not known, so that all scripts are
    /// its own.
    explicit ScriptLanguages(const std::string& tag);

    /// Returns the tag of the language that is most often written in the script of the text's first
    /// letter; empty for a script of the document's language, and for a text without letters. Valid
    /// while this exists.
    std::string_view Of(std::string_view text);

private:
    bool latinIsOwn_ = true;
    std::set<int> own_;                     ///< ICU's numbers of scripts; empty: all.
    std::map<int, std::string> languages_;  ///< By script.
};

}  // namespace desk
