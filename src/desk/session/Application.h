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

/// Who is told of what goes on. Any of them may be missing.
struct SessionListeners {
    std::function<void(std::int32_t pane, const std::string& text)> statusText;
    std::function<void(AnimationStep step)> animation;
    std::function<void()> refresh;  ///< The view is to be drawn anew.
};

/// The surface on which texts are measured. Sizes of the desk hang on no device, so that there is
/// one for all.
class Display final : public host::IHostDisplay {
public:
    Display();

    host::DeviceContext DeviceContext() const override;
    host::Ref<host::IHostDisplayTransformation> Transformation() const override {
        return transformation_;
    }
    /// Brackets may stand in one another; one that a failure left open does no harm. Fails for a
    /// device that is not this display's.
    void BeginDrawing(host::DeviceContext device, int cacheId) override;
    /// Fails where no bracket is open.
    void EndDrawing() override;

private:
    host::Ref<host::IHostDisplayTransformation> transformation_;
    int openBrackets_ = 0;
};

/// What an application is put together from.
struct ApplicationParts {
    std::shared_ptr<const SessionListeners> told;
    host::Ref<host::IHostCommandBars> commands;
    std::function<host::WindowHandle()> windowHandle;  ///< None: there is no window.
};

/// The application with its status bar, its document and the view on it, in one.
host::Ref<host::IHostApplication> MakeApplication(ApplicationParts parts);

/// The desk's commands by name. Whoever has something to offer enters it here.
class CommandTable final : public host::IHostCommandBars {
public:
    /// Enters a command, in place of one of the same name.
    void Add(const std::string& name, std::function<void()> action);

    host::Ref<host::IHostCommandItem> Find(const host::Ref<host::IHostIdentifier>& identifier,
                                           bool create, bool hidden) override;

private:
    std::map<std::string, host::Ref<host::IHostCommandItem>> items_;
};

}  // namespace desk
