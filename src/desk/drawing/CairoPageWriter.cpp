#include "desk/drawing/CairoPageWriter.h"

#include <string_view>

namespace desk {

Canvas& CairoPageWriter::BeginSheet(double width, double height) {
    surface_ = NewSurface(width, height);
    Check(cairo_surface_status(surface_.get()));
    context_.reset(cairo_create(surface_.get()));
    cairo_translate(context_.get(), 0, height);
    return canvas_.emplace(context_.get());
}

void CairoPageWriter::EndSheet(const std::string& /*bookmark*/) {
    const cairo_status_t status = cairo_status(context_.get());
    canvas_.reset();
    context_.reset();
    Check(status);
}

void CairoPageWriter::Check(cairo_status_t status) const {
    if (status == CAIRO_STATUS_SUCCESS) return;
    File().Check();
    File().Fail(cairo_status_to_string(status));
}

cairo_status_t CairoPageWriter::Write(void* closure, const unsigned char* data,
                                      unsigned int length) {
    const std::string_view bytes(static_cast<const char*>(static_cast<const void*>(data)), length);
    return static_cast<OutputFile*>(closure)->TryWrite(bytes) ? CAIRO_STATUS_SUCCESS
                                                              : CAIRO_STATUS_WRITE_ERROR;
}

}  // namespace desk
