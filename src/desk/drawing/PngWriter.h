#pragma once

#include "desk/drawing/PageWriter.h"

namespace desk {

/// An image of one sheet on white.
class PngWriter : public PageWriter {
public:
    PngWriter(const std::string& path, double dotsPerInch)
        : PageWriter(path, Sheets::One), dotsPerInch_(dotsPerInch) {}

protected:
    cairo_surface_t* BeginSheet(double width, double height) override;
    void EndSheet(const std::string&) override {}
    void Close() override;

private:
    double dotsPerInch_;
    CairoSurface surface_;
};

}  // namespace desk
