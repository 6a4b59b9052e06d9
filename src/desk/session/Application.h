#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "host/Application.h"

namespace desk {

enum class AnimationStep { Show, Play, Hide, Stop };

/// Callbacks for status, progress and redraw. Each may be empty.
struct SessionListeners {
    std::function<void(std::int32_t pane, const std::string& text)> statusText;
    /// How far the stage has come whose text follows; see IHostStepCounts.
    std::function<void(std::int64_t step, std::int64_t steps)> step;
    std::function<void(AnimationStep step)> animation;
    std::function<void()> refresh;  ///< The view must be redrawn.
    /// Called every few thousand steps of a sort, which sets no status text. May throw to end it.
    std::function<void(std::int64_t step, std::int64_t steps)> sorting;
};

/// The display for measuring texts. Sizes do not depend on the device, so one is enough.
class Display final : public host::IHostDisplay {
public:
    Display();

    host::DeviceContext DeviceContext() const override;
    host::Ref<host::IHostDisplayTransformation> Transformation() const override {
        return transformation_;
    }
    /// Calls may nest; one left open by a failure has no effect. Throws for an unknown device.
    void BeginDrawing(host::DeviceContext device, int cacheId) override;
    /// Throws if no drawing is open.
    void EndDrawing() override;

private:
    host::Ref<host::IHostDisplayTransformation> transformation_;
    int openBrackets_ = 0;
};

struct ApplicationParts {
    std::shared_ptr<const SessionListeners> listeners;
    host::Ref<host::IHostCommandBars> commands;
    std::function<host::WindowHandle()> windowHandle;  ///< Empty if there is no window.
};

/// Creates the application, which is also its status bar, document and view.
host::Ref<host::IHostApplication> MakeApplication(ApplicationParts parts);

/// The commands that the component can find by name.
class CommandTable final : public host::IHostCommandBars {
public:
    /// Adds a command or replaces the one of the same name.
    void Add(const std::string& name, std::function<void()> action);

    host::Ref<host::IHostCommandItem> Find(const host::Ref<host::IHostIdentifier>& identifier,
                                           bool create, bool hidden) override;

private:
    std::map<std::string, host::Ref<host::IHostCommandItem>> items_;
};

}  // namespace desk
