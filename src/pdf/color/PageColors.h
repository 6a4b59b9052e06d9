#pragma once

#include <string>
#include <unordered_map>

#include "pdf/color/Color.h"
#include "pdf/color/PressProfile.h"
#include "pdf/color/SpotColors.h"

namespace pdf {

/// Tells pages their colours: for screens as gray and RGB, for a press as its inks.
class PageColors {
public:
    /// Without a profile the colours are those of screens.
    PageColors(ObjectFile& file, const PressProfile* press) : file_(file), press_(press) {}

    enum class Use { Fill, Stroke };
    /// Appends the operators that set a colour.
    void Append(std::string& out, const Color& color, Use use);
    /// Appends the operators that make lines print on all plates of a press.
    void AppendAllPlates(std::string& out);

    /// Whether pages begin with black, so that it need not be set.
    bool BeginWithBlack() const { return press_ == nullptr; }

    /// Whether lines and texts of this colour print over what is below them: full black does on a
    /// press, so that no paper shows around letters on a ground that is out of register.
    bool Overprints(const Color& color);
    /// Appends the operator that begins or ends this.
    static void AppendOverprint(std::string& out, bool overprints);

    /// Returns the colour space of pictures of red, green and blue.
    std::string PictureSpace();

    /// Writes what the operators refer to. Returns the entries of the pages' resources.
    std::string WriteResources();

private:
    const Cmyk& Inks(std::uint32_t rgb);
    Cmyk ProcessOf(const Color& color);
    void AppendSpot(std::string& out, int number, Use use);

    ObjectFile& file_;
    const PressProfile* press_;
    std::unordered_map<std::uint32_t, Cmyk> inks_;  ///< Of colours of screens.
    SpotColors spots_;
    int pictureProfile_ = 0;  ///< Object number; 0: not written.
};

}  // namespace pdf
