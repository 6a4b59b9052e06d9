#include "desk/drawing/OutputFile.h"

#include <string_view>

namespace desk {

cairo_status_t OutputFile::Write(void* closure, const unsigned char* data, unsigned int length) {
    auto& file = static_cast<OutputFile*>(closure)->file_;
    const std::string_view bytes(static_cast<const char*>(static_cast<const void*>(data)), length);
    return file.Write(bytes) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

void OutputFile::Check(cairo_status_t status) const {
    if (status == CAIRO_STATUS_SUCCESS) return;
    file_.Check();
    file_.Fail(cairo_status_to_string(status));
}

}  // namespace desk
