#pragma once

#include "host/Host.h"

namespace gazetteer {

/// Inner procedures: height and width in inches of an element's bounds; of a group, those of all
/// its members.
double GetElementHeight(host::IHost& host, host::IHostElement& element,
                        const host::Ref<host::IHostDisplay>& display);
double GetElementWidth(host::IHost& host, host::IHostElement& element,
                       const host::Ref<host::IHostDisplay>& display);

/// The gazetteer element's own bounds, read fresh.
struct FrameBounds {
    host::Ref<host::IHostPoint> topLeft;
    double width = 0;
    double height = 0;
};
FrameBounds ReadFrame(const host::IHostElement& element);

}  // namespace gazetteer
