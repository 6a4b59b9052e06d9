#pragma once

#include <cstdint>
#include <string>

#include "host/Commands.h"
#include "host/Display.h"
#include "host/PropertyPages.h"

namespace host {

/// Shows that something long is going on. The calls come in the order Show, Play, Hide, Stop.
struct IHostProgressAnimation : virtual IHostObject {
    virtual void Show() = 0;
    virtual void Play() = 0;
    virtual void Hide() = 0;
    virtual void Stop() = 0;
};

struct IHostStatusBar : virtual IHostObject {
    virtual void SetText(std::int32_t pane, const std::string& text) = 0;
    virtual Ref<IHostProgressAnimation> ProgressAnimation() = 0;
};

struct IHostActiveView : virtual IHostObject {
    virtual Ref<IHostDisplay> Display() = 0;
    virtual void Refresh() = 0;
};

struct IHostDocument : virtual IHostObject {
    virtual Ref<IHostActiveView> ActiveView() = 0;
    virtual Ref<IHostCommandBars> CommandBars() = 0;
};

/// Every instance reaches the one running host.
struct IHostApplication : virtual IHostObject {
    virtual Ref<IHostDocument> Document() = 0;
    virtual Ref<IHostStatusBar> StatusBar() = 0;
    /// The main window, as the parent of dialogs; 0 without one.
    virtual host::WindowHandle WindowHandle() = 0;
};

}  // namespace host
