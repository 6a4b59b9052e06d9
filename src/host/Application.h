#pragma once

#include <cstdint>
#include <string>

#include "host/Display.h"
#include "host/PropertyPages.h"
#include "host/Tables.h"

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

struct IHostCommandItem : virtual IHostObject {
    virtual void Execute() = 0;
};

/// The host's commands. A command's identifier has its name as value.
struct IHostCommandBars : virtual IHostObject {
    /// The item of a command, or null. Callers pass false for both flags: no item is created for a
    /// missing command, and hidden bars are not searched.
    virtual Ref<IHostCommandItem> Find(const Ref<IHostIdentifier>& identifier, bool create,
                                       bool hidden) = 0;
};

struct IHostDocument : virtual IHostObject {
    virtual Ref<IHostActiveView> ActiveView() = 0;
    virtual Ref<IHostCommandBars> CommandBars() = 0;
};

/// The running host; every instance stands for the same one.
struct IHostApplication : virtual IHostObject {
    virtual Ref<IHostDocument> Document() = 0;
    virtual Ref<IHostStatusBar> StatusBar() = 0;
    /// The main window, as the parent of dialogs; 0 without one.
    virtual host::WindowHandle WindowHandle() = 0;
};

}  // namespace host
