#pragma once

#include "desk/drawing/CairoPageWriter.h"

namespace desk {

/// An SVG of one sheet, its texts as outlines.
class SvgWriter : public CairoPageWriter {
public:
    explicit SvgWriter(const std::string& path) : CairoPageWriter(path) {}

protected:
    CairoSurface NewSurface(double width, double height) override;
    void Close() override;
};

}  // namespace desk
