#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "desk/devices/CairoShapes.h"
#include "desk/drawing/ElementPainter.h"
#include "desk/drawing/PageWriter.h"
#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/Symbols.h"
#include "support/Output.h"
#include "support/TemporaryFolder.h"

namespace sheet {

constexpr double kSide = 4;  ///< Inches of a test sheet.

using Members = std::vector<host::Ref<host::IHostElement>>;

inline host::Ref<host::IHostColor> Color(std::uint32_t color, bool transparent = false) {
    const auto made = std::make_shared<desk::Color>(color);
    made->SetTransparent(transparent);
    return made;
}

inline host::Ref<host::IHostElement> Rectangle(double xmin, double ymin, double xmax, double ymax,
                                               std::uint32_t color, bool transparent = false) {
    const auto symbol = std::make_shared<desk::FillSymbol>();
    symbol->SetColor(Color(color, transparent));
    const auto outline = std::make_shared<desk::LineSymbol>();
    outline->SetColor(Color(0, true));
    symbol->SetOutline(outline);
    const auto element = std::make_shared<desk::RectangleElement>();
    element->SetGeometry(std::make_shared<desk::Envelope>(xmin, ymin, xmax, ymax));
    element->SetSymbol(symbol);
    return element;
}

inline host::Ref<desk::GroupElement> Group(const Members& members) {
    const auto group = std::make_shared<desk::GroupElement>();
    group->SetGeometry(std::make_shared<desk::Envelope>(0.5, 0.5, 3.5, 3.5));
    for (const auto& member : members) group->Add(member);
    return group;
}

/// A folder of test sheets. Lengths are inches, colours 0xBBGGRR.
class Sheets : public support::TemporaryFolder {
public:
    host::Ref<host::IHostElement> Text(double x, double y, const std::string& text,
                                       const std::string& family = "DejaVu Sans",
                                       double points = 10) const {
        const auto symbol = std::make_shared<desk::TextSymbol>(engine);
        symbol->Font()->SetName(family);
        symbol->SetSize(points);
        symbol->SetVerticalPlacement(1);
        const auto element = std::make_shared<desk::TextElement>(engine);
        element->SetText(text);
        element->SetSymbol(symbol);
        element->SetGeometry(std::make_shared<desk::Point>(x, y));
        return element;
    }
    /// Texts one below the other.
    host::Ref<host::IHostElement> Lines(const std::vector<std::string>& texts,
                                        const std::string& family = "DejaVu Sans") const {
        Members members;
        double y = kSide;
        for (const auto& text : texts) members.push_back(Text(0.2, y -= 0.17, text, family));
        return Group(members);
    }

    void AddPage(desk::PageWriter& writer, const host::Ref<host::IHostElement>& element,
                 const std::string& bookmark = {}, double height = kSide) const {
        writer.BeginPage(kSide, height);
        desk::ElementPainter(*engine).Paint(writer.Sheet(), element);
        writer.EndPage(bookmark);
    }
    std::string Draw(const std::string& name, const host::Ref<host::IHostElement>& element,
                     const desk::PageWriterOptions& options = {}) const {
        const auto writer = desk::OpenPageWriter(File(name), options);
        AddPage(*writer, element);
        writer->Finish();
        return File(name);
    }

    std::shared_ptr<desk::TextEngine> engine = std::make_shared<desk::TextEngine>();
};

/// An image, as grey values from the upper left corner.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> grey;

    int At(int x, int y) const { return grey[static_cast<std::size_t>(y * width + x)]; }
    /// The pixel at a place in inches from the lower left corner of a test sheet.
    int Inch(double x, double y) const {
        return At(static_cast<int>(x / kSide * width),
                  static_cast<int>((kSide - y) / kSide * height));
    }
};

/// A PNG, or a PDF by a renderer that softens all edges, so that no seam can hide.
inline Image Look(const std::string& path, int dotsPerInch) {
    if (path.ends_with(".pdf")) {
        support::Output("pdftocairo -png -singlefile -r " + std::to_string(dotsPerInch) + " '" +
                        path + "' '" + path + "'");
        return Look(path + ".png", dotsPerInch);
    }
    const desk::CairoSurface png(cairo_image_surface_create_from_png(path.c_str()));
    EXPECT_EQ(cairo_surface_status(png.get()), CAIRO_STATUS_SUCCESS) << path;
    Image image{
        cairo_image_surface_get_width(png.get()), cairo_image_surface_get_height(png.get()), {}};
    const unsigned char* const data = cairo_image_surface_get_data(png.get());
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            image.grey.push_back(data[y * cairo_image_surface_get_stride(png.get()) + 4 * x + 1]);
    return image;
}

}  // namespace sheet
