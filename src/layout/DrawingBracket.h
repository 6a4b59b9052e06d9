#pragma once

#include "host/Host.h"

namespace gazetteer {

/// What a question to the host gives inside a drawing bracket of the display. The question is given
/// the display's device and transformation; where it fails, the bracket is left to the host.
template <class Question>
auto InDrawingBracket(host::IHostDisplay& display, const Question& question) {
    constexpr int kNoCache = -1;
    display.BeginDrawing(display.DeviceContext(), kNoCache);
    auto answer = question(display.DeviceContext(), display.Transformation());
    display.EndDrawing();
    return answer;
}

}  // namespace gazetteer
