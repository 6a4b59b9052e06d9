#pragma once

#include "desk/drawing/CairoPageWriter.h"

namespace desk {

/// An image of one sheet on white.
class PngWriter : public CairoPageWriter {
public:
    PngWriter(const std::string& path, double dotsPerInch)
        : CairoPageWriter(path), dotsPerInch_(dotsPerInch) {}

protected:
    CairoSurface NewSurface(double width, double height) override;
    void Close() override;

private:
    double dotsPerInch_;
};

}  // namespace desk
