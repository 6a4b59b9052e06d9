#pragma once

#include "desk/drawing/PageWriter.h"

namespace desk {

/// An SVG of one sheet, its texts as outlines.
class SvgWriter : public PageWriter {
public:
    explicit SvgWriter(const std::string& path) : PageWriter(path, Sheets::One) {}

protected:
    cairo_surface_t* BeginSheet(double width, double height) override;
    void EndSheet(const std::string&) override {}
    void Close() override;

private:
    CairoSurface surface_;
};

}  // namespace desk
