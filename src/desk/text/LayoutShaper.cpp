#include "desk/text/LayoutShaper.h"

#include <pango/pangocairo.h>

#include "desk/text/Surfaces.h"

namespace desk {
namespace {

/// A layout would end a line at these as well.
bool IsSeparator(gunichar character) {
    return character == 0x85 || character == 0x2028 || character == 0x2029;
}

/// The line with blanks for separators, since only LF ends a line, and with U+FFFD for whatever is
/// not UTF-8.
std::string Readable(std::string_view line) {
    const GStringHandle valid(g_utf8_make_valid(line.data(), static_cast<gssize>(line.size())));
    std::string text;
    for (const char* place = valid.get(); *place;) {
        const char* const next = g_utf8_find_next_char(place, nullptr);
        if (IsSeparator(g_utf8_get_char(place)))
            text += ' ';
        else
            text.append(place, next);
        place = next;
    }
    return text;
}

}  // namespace

LayoutShaper::LayoutShaper(PangoContext* context) : layout_(pango_layout_new(context)) {
    pango_layout_set_single_paragraph_mode(layout_.get(), TRUE);
}

int LayoutShaper::Shape(const ResolvedFont& font, std::string_view line) {
    if (font_ != &font) {
        pango_layout_set_font_description(layout_.get(), font.description.get());
        font_ = &font;
    }
    scratch_ = Readable(line);
    pango_layout_set_text(layout_.get(), scratch_.data(), static_cast<int>(scratch_.size()));
    PangoRectangle logical{};
    pango_layout_line_get_extents(pango_layout_get_line_readonly(layout_.get(), 0), nullptr,
                                  &logical);
    return logical.width;
}

void LayoutShaper::Show(cairo_t* context, double x, double y) {
    PangoLayoutLine* const line = pango_layout_get_line_readonly(layout_.get(), 0);
    cairo_move_to(context, x, y);
    if (IsImage(context)) {
        pango_cairo_layout_line_path(context, line);
        cairo_fill(context);
    } else {
        pango_cairo_show_layout_line(context, line);
        cairo_new_path(context);
    }
}

}  // namespace desk
