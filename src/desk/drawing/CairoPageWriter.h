#pragma once

#include <optional>

#include "desk/devices/CairoHandles.h"
#include "desk/drawing/CairoCanvas.h"
#include "desk/drawing/PageWriter.h"

namespace desk {

/// Writes a file of one sheet that cairo paints.
class CairoPageWriter : public PageWriter {
protected:
    explicit CairoPageWriter(const std::string& path) : PageWriter(path, Sheets::One) {}

    /// A surface for a sheet of a size in points.
    virtual CairoSurface NewSurface(double width, double height) = 0;

    Canvas& BeginSheet(double width, double height) final;
    void EndSheet(const std::string& bookmark) final;

    cairo_surface_t* Surface() const { return surface_.get(); }
    void LetGo() { surface_.reset(); }
    /// Throws host::Failure unless cairo is content.
    void Check(cairo_status_t status) const;
    /// Sink for cairo; the closure is the OutputFile.
    static cairo_status_t Write(void* closure, const unsigned char* data, unsigned int length);

private:
    CairoSurface surface_;
    CairoContext context_;
    std::optional<CairoCanvas> canvas_;
};

}  // namespace desk
