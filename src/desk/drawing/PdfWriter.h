#pragma once

#include <memory>
#include <vector>

#include "desk/drawing/PageWriter.h"
#include "desk/drawing/pdf/Bookmarks.h"
#include "desk/drawing/pdf/FontSet.h"
#include "desk/drawing/pdf/ObjectFile.h"
#include "desk/drawing/pdf/PageContent.h"

namespace desk {

/// A PDF of any number of sheets. The same drawing gives the same bytes: the date of creation is
/// that of the environment's SOURCE_DATE_EPOCH (seconds since 1970), and none without it.
class PdfWriter : public PageWriter {
public:
    PdfWriter(const std::string& path, const std::string& title);

protected:
    Canvas& BeginSheet(double width, double height) override;
    void EndSheet(const std::string& bookmark) override;
    void Close() override;

private:
    int WriteInfo();

    std::string title_;
    pdf::ObjectFile objects_;
    pdf::FontSet fonts_;
    pdf::Bookmarks bookmarks_;
    int catalog_;
    int pageTree_;
    std::vector<int> pages_;  ///< Objects of the pages.
    std::unique_ptr<pdf::PageContent> content_;
    double width_ = 0, height_ = 0;  ///< Of the sheet, in points.
};

}  // namespace desk
