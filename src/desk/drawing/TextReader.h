#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "host/Elements.h"
#include "pdf/structure/Meaning.h"

namespace desk {

/// A part of a text, which begins where the part before it ends.
struct TextPart {
    pdf::Meaning meaning;
    std::size_t end = 0;  ///< Bytes from the start of the text.
};

/// Tells the painter what texts mean, for formats that keep it.
class TextReader {
public:
    virtual ~TextReader() = default;

    /// Called before and after the members of a group.
    virtual void Enter(const host::IHostGroupElement& group) = 0;
    virtual void Leave() = 0;

    /// Returns the parts of a text, in its order; the last one takes what is left. They and their
    /// languages are valid until the next call.
    virtual std::span<const TextPart> Read(const host::IHostTextElement& element,
                                           std::string_view text) = 0;
};

}  // namespace desk
