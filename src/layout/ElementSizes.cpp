#include "layout/ElementSizes.h"

#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {

double GetElementHeight(host::IHostGeometryFactory& host, host::IHostElement& element,
                        const host::Ref<host::IHostDisplay>& display) try {
    const auto bounds = host.NewEnvelope();
    element.MeasureBounds(display, bounds);
    return bounds->Height();
} catch (...) {
    PassOn("GetElementHeight", kManagerLabel);
}

double GetElementWidth(host::IHostGeometryFactory& host, host::IHostElement& element,
                       const host::Ref<host::IHostDisplay>& display) try {
    const auto bounds = host.NewEnvelope();
    element.MeasureBounds(display, bounds);
    return bounds->Width();
} catch (...) {
    PassOn("GetElementWidth", kManagerLabel);
}

FrameBounds ReadFrame(const host::IHostElement& element) {
    const auto bounds = Require<host::IHostGeometry>(element.Geometry())->Bounds();
    return {bounds->TopLeft(), bounds->Width(), bounds->Height()};
}

}  // namespace gazetteer
