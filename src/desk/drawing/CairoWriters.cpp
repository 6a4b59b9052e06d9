#include <algorithm>
#include <cairo-svg.h>
#include <cmath>
#include <optional>

#include "desk/drawing/Writers.h"

namespace desk {
namespace {

/// Base of the writers that paint one sheet with cairo.
class CairoPageWriter : public PageWriter {
protected:
    explicit CairoPageWriter(const std::string& path) : PageWriter(path, Sheets::One) {}

    /// Returns a surface for a sheet; sizes in points.
    virtual CairoSurface NewSurface(double width, double height) = 0;
    /// Writes the rest of the surface to the file.
    virtual cairo_status_t WriteSurface(cairo_surface_t* surface) = 0;

    /// Throws host::Failure unless the status is success.
    void Check(cairo_status_t status) {
        if (status == CAIRO_STATUS_SUCCESS) return;
        File().Check();
        File().Fail(cairo_status_to_string(status));
    }
    /// Write callback for cairo; the closure is the ReplacingFile.
    static cairo_status_t Write(void* closure, const unsigned char* data, unsigned int length) {
        const std::string_view bytes(static_cast<const char*>(static_cast<const void*>(data)),
                                     length);
        return static_cast<ReplacingFile*>(closure)->Write(bytes) ? CAIRO_STATUS_SUCCESS
                                                                  : CAIRO_STATUS_WRITE_ERROR;
    }

private:
    Canvas& BeginSheet(double width, double height) final {
        surface_ = NewSurface(width, height);
        Check(cairo_surface_status(surface_.get()));
        context_.reset(cairo_create(surface_.get()));
        cairo_translate(context_.get(), 0, height);
        return canvas_.emplace(context_.get());
    }
    void EndSheet(const std::string& /*title*/, std::span<const Bookmark> /*places*/) final {
        const cairo_status_t status = cairo_status(context_.get());
        canvas_.reset();
        context_.reset();
        Check(status);
    }
    void Close() final {
        Check(WriteSurface(surface_.get()));
        surface_.reset();
    }

    CairoSurface surface_;
    CairoContext context_;
    std::optional<CairoCanvas> canvas_;
};

class PngWriter final : public CairoPageWriter {
public:
    PngWriter(const std::string& path, double dotsPerInch)
        : CairoPageWriter(path), scale_(dotsPerInch / kPointsPerInch) {}

private:
    CairoSurface NewSurface(double width, double height) override {
        constexpr double kMostPixels = 32767;  // Of a side of a cairo image.
        if (std::max(width, height) * scale_ > kMostPixels)
            File().Fail("at this resolution a side of the sheet has more than 32767 pixels");
        CairoSurface surface(cairo_image_surface_create(
            CAIRO_FORMAT_RGB24, static_cast<int>(std::lround(width * scale_)),
            static_cast<int>(std::lround(height * scale_))));
        Check(cairo_surface_status(surface.get()));
        cairo_surface_set_device_scale(surface.get(), scale_, scale_);
        const CairoContext paper(cairo_create(surface.get()));
        cairo_set_source_rgb(paper.get(), 1, 1, 1);
        cairo_paint(paper.get());
        return surface;
    }
    cairo_status_t WriteSurface(cairo_surface_t* surface) override {
        return cairo_surface_write_to_png_stream(surface, &Write, &File());
    }

    double scale_;  ///< Pixels per point.
};

class SvgWriter final : public CairoPageWriter {
public:
    explicit SvgWriter(const std::string& path) : CairoPageWriter(path) {}

private:
    CairoSurface NewSurface(double width, double height) override {
        CairoSurface surface(cairo_svg_surface_create_for_stream(&Write, &File(), width, height));
        // The default since cairo 1.18 is pixels.
        cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PT);
        return surface;
    }
    cairo_status_t WriteSurface(cairo_surface_t* surface) override {
        cairo_surface_finish(surface);
        return cairo_surface_status(surface);
    }
};

}  // namespace

std::unique_ptr<PageWriter> NewPngWriter(const std::string& path,
                                         const PageWriterOptions& options) {
    return std::make_unique<PngWriter>(path, options.dotsPerInch);
}

std::unique_ptr<PageWriter> NewSvgWriter(const std::string& path,
                                         const PageWriterOptions& /*options*/) {
    return std::make_unique<SvgWriter>(path);
}

}  // namespace desk
