#pragma once

#include "desk/drawing/PageWriter.h"

namespace desk {

/// A PDF of any number of sheets. The same drawing gives the same bytes: the date of creation is
/// that of the environment's SOURCE_DATE_EPOCH (seconds since 1970), and none without it.
class PdfWriter : public PageWriter {
public:
    PdfWriter(const std::string& path, const std::string& title);

protected:
    cairo_surface_t* BeginSheet(double width, double height) override;
    void EndSheet(const std::string& bookmark) override;
    void Close() override;

private:
    CairoSurface surface_;
};

}  // namespace desk
