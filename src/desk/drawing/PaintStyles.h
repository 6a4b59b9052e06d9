#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "desk/text/TextEngine.h"
#include "host/Symbols.h"

namespace desk {

/// How a text symbol paints texts; without a colour they do not show.
struct TextStyle {
    const ResolvedFont* font = nullptr;
    TextPlacement placement;
    std::optional<std::uint32_t> color;
};

/// How a fill symbol paints a rectangle.
struct FillStyle {
    std::optional<std::uint32_t> fill, outline;
};

/// Reads symbols, and those that elements share but once. For one pass over elements, in which no
/// symbol changes.
class PaintStyles {
public:
    explicit PaintStyles(TextEngine& engine) : engine_(engine) {}

    const TextStyle& Of(const host::Ref<host::IHostTextSymbol>& symbol) {
        return texts_.Find(symbol,
                           [this](const host::IHostTextSymbol& read) { return Read(read); });
    }
    const FillStyle& Of(const host::Ref<host::IHostFillSymbol>& symbol) {
        return fills_.Find(symbol, [](const host::IHostFillSymbol& read) { return Read(read); });
    }

private:
    /// The styles of the last few symbols. They are held, so that no other one takes their address.
    template <class Symbol, class Style>
    class Memory {
    public:
        template <class Reader>
        const Style& Find(const host::Ref<Symbol>& symbol, const Reader& read) {
            for (const auto& known : known_)
                if (known.symbol == symbol) return known.style;
            auto& place = known_[next_++ % known_.size()];
            place = {symbol, read(*symbol)};
            return place.style;
        }

    private:
        struct Known {
            host::Ref<Symbol> symbol;
            Style style;
        };
        std::array<Known, 8> known_;  // More than an index has columns, as a rule.
        std::size_t next_ = 0;
    };

    TextStyle Read(const host::IHostTextSymbol& symbol);
    static FillStyle Read(const host::IHostFillSymbol& symbol);

    TextEngine& engine_;
    Memory<host::IHostTextSymbol, TextStyle> texts_;
    Memory<host::IHostFillSymbol, FillStyle> fills_;
};

}  // namespace desk
