#include "desk/session/Application.h"

#include <memory>
#include <utility>

#include "desk/objects/Geometry.h"
#include "host/Failure.h"
#include "host/StepCounts.h"

namespace desk {
namespace {

/// Any number but 0, which means no surface.
constexpr host::DeviceContext kTheDevice = 1;

using Listeners = std::shared_ptr<const SessionListeners>;

class Animation final : public host::IHostProgressAnimation {
public:
    explicit Animation(Listeners listeners) : listeners_(std::move(listeners)) {}
    void Show() override { Notify(AnimationStep::Show); }
    void Play() override { Notify(AnimationStep::Play); }
    void Hide() override { Notify(AnimationStep::Hide); }
    void Stop() override { Notify(AnimationStep::Stop); }

private:
    void Notify(AnimationStep step) {
        if (listeners_->animation) listeners_->animation(step);
    }

    Listeners listeners_;
};

class StatusBar final : public host::IHostStatusBar, public host::IHostStepCounts {
public:
    explicit StatusBar(Listeners listeners)
        : listeners_(std::move(listeners)), animation_(std::make_shared<Animation>(listeners_)) {}

    void SetText(std::int32_t pane, const std::string& text) override {
        if (listeners_->statusText) listeners_->statusText(pane, text);
    }
    void SetStep(std::int64_t step, std::int64_t steps) override {
        if (listeners_->step) listeners_->step(step, steps);
    }
    host::Ref<host::IHostProgressAnimation> ProgressAnimation() override { return animation_; }

private:
    Listeners listeners_;
    host::Ref<host::IHostProgressAnimation> animation_;
};

class ActiveView final : public host::IHostActiveView {
public:
    explicit ActiveView(Listeners listeners) : listeners_(std::move(listeners)) {}

    host::Ref<host::IHostDisplay> Display() override { return display_; }
    void Refresh() override {
        if (listeners_->refresh) listeners_->refresh();
    }

private:
    Listeners listeners_;
    host::Ref<host::IHostDisplay> display_ = std::make_shared<desk::Display>();
};

class OpenDocument final : public host::IHostDocument {
public:
    OpenDocument(const Listeners& listeners, host::Ref<host::IHostCommandBars> commands)
        : view_(std::make_shared<desk::ActiveView>(listeners)), commands_(std::move(commands)) {}
    host::Ref<host::IHostActiveView> ActiveView() override { return view_; }
    host::Ref<host::IHostCommandBars> CommandBars() override { return commands_; }

private:
    host::Ref<host::IHostActiveView> view_;
    host::Ref<host::IHostCommandBars> commands_;
};

class Application final : public host::IHostApplication {
public:
    explicit Application(ApplicationParts parts)
        : document_(std::make_shared<OpenDocument>(parts.listeners, std::move(parts.commands))),
          statusBar_(std::make_shared<desk::StatusBar>(parts.listeners)),
          windowHandle_(std::move(parts.windowHandle)) {}
    host::Ref<host::IHostDocument> Document() override { return document_; }
    host::Ref<host::IHostStatusBar> StatusBar() override { return statusBar_; }
    host::WindowHandle WindowHandle() override { return windowHandle_ ? windowHandle_() : 0; }

private:
    host::Ref<host::IHostDocument> document_;
    host::Ref<host::IHostStatusBar> statusBar_;
    std::function<host::WindowHandle()> windowHandle_;
};

class CommandItem final : public host::IHostCommandItem {
public:
    explicit CommandItem(std::function<void()> action) : action_(std::move(action)) {}
    void Execute() override { action_(); }

private:
    std::function<void()> action_;
};

}  // namespace

Display::Display() : transformation_(std::make_shared<DisplayTransformation>()) {}

host::DeviceContext Display::DeviceContext() const {
    return kTheDevice;
}

void Display::BeginDrawing(host::DeviceContext device, int /*cacheId*/) {
    if (device != kTheDevice) {
        throw host::Failure(host::kFailureTypeMismatch, "desk::Display",
                            "The drawing surface is none of this display.");
    }
    ++openBrackets_;
}

void Display::EndDrawing() {
    if (openBrackets_ == 0) {
        throw host::Failure(host::kFailureUnspecified, "desk::Display",
                            "A drawing was ended that had not been begun.");
    }
    --openBrackets_;
}

host::Ref<host::IHostApplication> MakeApplication(ApplicationParts parts) {
    return std::make_shared<Application>(std::move(parts));
}

void CommandTable::Add(const std::string& name, std::function<void()> action) {
    items_[name] = std::make_shared<CommandItem>(std::move(action));
}

host::Ref<host::IHostCommandItem> CommandTable::Find(
    const host::Ref<host::IHostIdentifier>& identifier, bool /*create*/, bool /*hidden*/) {
    const auto found = items_.find(identifier->Value());
    return found == items_.end() ? nullptr : found->second;
}

}  // namespace desk
