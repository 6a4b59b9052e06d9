#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "desk/text/TextEngine.h"
#include "host/Symbols.h"

namespace desk {

/// How a text symbol makes texts look; without a colour they do not show.
struct TextLook {
    const ResolvedFont* font = nullptr;
    TextPlacement placement;
    std::optional<std::uint32_t> color;
};

/// How a fill symbol makes a rectangle look.
struct FillLook {
    std::optional<std::uint32_t> fill, outline;
};

/// Reads symbols, and those that elements share but once. For one pass over elements, in which no
/// symbol changes.
class Looks {
public:
    explicit Looks(TextEngine& engine) : engine_(engine) {}

    const TextLook& Of(const host::Ref<host::IHostTextSymbol>& symbol) {
        return texts_.Find(symbol,
                           [this](const host::IHostTextSymbol& read) { return Read(read); });
    }
    const FillLook& Of(const host::Ref<host::IHostFillSymbol>& symbol) {
        return fills_.Find(symbol, [](const host::IHostFillSymbol& read) { return Read(read); });
    }

private:
    /// The looks of the last few symbols. They are held, so that no other one takes their address.
    template <class Symbol, class Look>
    class Memory {
    public:
        template <class Reader>
        const Look& Find(const host::Ref<Symbol>& symbol, const Reader& read) {
            for (const auto& known : known_)
                if (known.symbol == symbol) return known.look;
            auto& place = known_[next_++ % known_.size()];
            place = {symbol, read(*symbol)};
            return place.look;
        }

    private:
        struct Known {
            host::Ref<Symbol> symbol;
            Look look;
        };
        std::array<Known, 8> known_;  // More than an index has columns, as a rule.
        std::size_t next_ = 0;
    };

    TextLook Read(const host::IHostTextSymbol& symbol);
    static FillLook Read(const host::IHostFillSymbol& symbol);

    TextEngine& engine_;
    Memory<host::IHostTextSymbol, TextLook> texts_;
    Memory<host::IHostFillSymbol, FillLook> fills_;
};

}  // namespace desk
