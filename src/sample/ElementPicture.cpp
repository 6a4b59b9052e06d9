#include "sample/ElementPicture.h"

#include "support/Conversions.h"

namespace gazetteer {
namespace {

using host::Ref;

class ElementPicture {
public:
    ElementPicture(host::IHost& host, const PictureView& view)
        : device_(view.device), transformation_(host.NewDisplayTransformation()) {
        const auto extent = host.NewEnvelope();
        extent->SetCoords(0, 0, view.width / view.pixelsPerInch, view.height / view.pixelsPerInch);
        transformation_->SetShownExtent(extent);
        transformation_->SetFullExtent(extent);
        transformation_->SetDeviceRectangle({0, 0, view.width, view.height});
        transformation_->SetDotsPerInch(view.pixelsPerInch);
    }

    void Draw(const host::IHostGroupElement& group) const {
        for (std::int32_t i = 0; i < group.Count(); ++i) {
            const auto member = group.Item(i);
            if (const auto inner = host::As<host::IHostGroupElement>(member))
                Draw(*inner);
            else if (const auto fill = host::As<host::IHostFilledElement>(member))
                DrawSymbol(*fill->Symbol(), fill->Geometry());
            else if (const auto text = host::As<host::IHostTextElement>(member))
                DrawText(*text);
        }
    }

private:
    // A symbol draws its sample text.
    void DrawText(const host::IHostTextElement& element) const {
        const std::string text = element.Text();
        if (text.find_first_not_of(' ') == std::string::npos) return;
        const auto symbol = Require<host::IHostTextSymbol>(element.Symbol()->Copy());
        symbol->SetText(text);
        DrawSymbol(*symbol, element.Geometry());
    }

    void DrawSymbol(host::IHostSymbol& symbol, const Ref<host::IHostGeometry>& geometry) const {
        symbol.PrepareDevice(device_, transformation_);
        try {
            symbol.DrawGeometry(geometry);
        } catch (...) {
            symbol.ReleaseDevice();
            throw;
        }
        symbol.ReleaseDevice();
    }

    host::DeviceContext device_;
    Ref<host::IHostDisplayTransformation> transformation_;
};

}  // namespace

void DrawElements(host::IHost& host, const host::IHostGroupElement& group,
                  const PictureView& view) {
    ElementPicture(host, view).Draw(group);
}

}  // namespace gazetteer
