#include "manager/SeriesLink.h"

#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

using host::IHostElement;
using host::IHostMapFrame;
using host::Ref;
using Frames = std::vector<Ref<IHostMapFrame>>;

void AddIfSeries(host::MapSeriesManager& seriesManager, const Ref<IHostElement>& element,
                 Frames& frames) {
    const auto frame = host::As<IHostMapFrame>(element);
    if (frame && seriesManager.IsSeriesFrame(frame) && seriesManager.HasIndexLayer(frame))
        frames.push_back(frame);
}

void AddElement(host::MapSeriesManager& seriesManager, const Ref<IHostElement>& element,
                Frames& frames) {
    if (host::As<IHostMapFrame>(element)) {
        AddIfSeries(seriesManager, element, frames);
    } else if (const auto container = host::As<host::IHostElementContainer>(element)) {
        container->Reset();
        for (auto inner = container->Next(); inner; inner = container->Next())
            AddIfSeries(seriesManager, inner, frames);
    } else if (const auto group = host::As<host::IHostGroupElement>(element)) {
        for (std::int32_t i = 0; i < group->Count(); ++i)
            AddIfSeries(seriesManager, group->Item(i), frames);
    }
}

}  // namespace

Frames GetMapSeriesFrames(host::MapSeriesManager& seriesManager,
                          const Ref<host::IHostObject>& layout, const char* label) try {
    Frames frames;
    const auto elements = Require<host::IHostElementContainer>(layout);
    elements->Reset();
    for (auto element = elements->Next(); element; element = elements->Next())
        AddElement(seriesManager, element, frames);
    return frames;
} catch (...) {
    PassOn("GetMapSeriesFrames", label);
}

}  // namespace gazetteer
