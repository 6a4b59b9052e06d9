#pragma once

#include <string>
#include <utility>

#include "host/Host.h"

namespace gazetteer {

/// A status bar that shows nothing.
class QuietStatusBar final : public host::IHostStatusBar {
    struct Still final : host::IHostProgressAnimation {
        void Show() override {}
        void Play() override {}
        void Hide() override {}
        void Stop() override {}
    };

public:
    void SetText(std::int32_t, const std::string&) override {}
    host::Ref<host::IHostProgressAnimation> ProgressAnimation() override {
        return std::make_shared<Still>();
    }
};

/// The host's view, which stays as it is when something is drawn elsewhere.
class QuietView final : public host::IHostActiveView {
public:
    explicit QuietView(host::Ref<host::IHostActiveView> view) : view_(std::move(view)) {}
    host::Ref<host::IHostDisplay> Display() override { return view_->Display(); }
    void Refresh() override {}

private:
    host::Ref<host::IHostActiveView> view_;
};

class QuietDocument final : public host::IHostDocument {
public:
    explicit QuietDocument(host::Ref<host::IHostDocument> document)
        : document_(std::move(document)) {}
    host::Ref<host::IHostActiveView> ActiveView() override {
        return std::make_shared<QuietView>(document_->ActiveView());
    }
    host::Ref<host::IHostCommandBars> CommandBars() override { return document_->CommandBars(); }

private:
    host::Ref<host::IHostDocument> document_;
};

class QuietApplication final : public host::IHostApplication {
public:
    explicit QuietApplication(host::Ref<host::IHostApplication> application)
        : application_(std::move(application)) {}
    host::Ref<host::IHostDocument> Document() override {
        return std::make_shared<QuietDocument>(application_->Document());
    }
    host::Ref<host::IHostStatusBar> StatusBar() override {
        return std::make_shared<QuietStatusBar>();
    }
    host::WindowHandle WindowHandle() override { return application_->WindowHandle(); }

private:
    host::Ref<host::IHostApplication> application_;
};

/// The host, for listings and layout that the user does not see as work: its status bar shows
/// nothing and its view is not refreshed. All else is the host's own. It must not outlive the host.
class QuietHost final : public host::IHost {
public:
    explicit QuietHost(host::IHost& host) : host_(host) {}

    host::Ref<host::IHostApplication> NewApplication() override {
        return std::make_shared<QuietApplication>(host_.NewApplication());
    }

    // clang-format off
    host::Ref<host::IHostPropertySet> NewPropertySet() override { return host_.NewPropertySet(); }
    host::Ref<host::IHostObjectCopy> NewObjectCopy() override { return host_.NewObjectCopy(); }
    host::Ref<host::IHostPoint> NewPoint() override { return host_.NewPoint(); }
    host::Ref<host::IHostEnvelope> NewEnvelope() override { return host_.NewEnvelope(); }
    host::Ref<host::IHostLine> NewLine() override { return host_.NewLine(); }
    host::Ref<host::IHostFont> NewFont() override { return host_.NewFont(); }
    host::Ref<host::IHostColor> NewColor() override { return host_.NewColor(); }
    host::Ref<host::IHostTextSymbol> NewTextSymbol() override { return host_.NewTextSymbol(); }
    host::Ref<host::IHostFillSymbol> NewFillSymbol() override { return host_.NewFillSymbol(); }
    host::Ref<host::IHostLineSymbol> NewLineSymbol() override { return host_.NewLineSymbol(); }
    host::Ref<host::IHostGroupElement> NewGroupElement() override { return host_.NewGroupElement(); }
    host::Ref<host::IHostTextElement> NewTextElement() override { return host_.NewTextElement(); }
    host::Ref<host::IHostFilledElement> NewRectangleElement() override { return host_.NewRectangleElement(); }
    host::Ref<host::IHostDisplayTransformation> NewDisplayTransformation() override { return host_.NewDisplayTransformation(); }
    host::Ref<host::IHostPixelSurface> NewPixelSurface(std::int32_t width, std::int32_t height, double dotsPerInch) override { return host_.NewPixelSurface(width, height, dotsPerInch); }
    host::IHostDevices& Devices() override { return host_.Devices(); }
    host::Ref<host::IHostObjectDialog> NewObjectDialog() override { return host_.NewObjectDialog(); }
    host::Ref<host::IHostObjectFilter> NewTableFilter() override { return host_.NewTableFilter(); }
    host::Ref<host::IHostSymbolDialog> NewSymbolDialog() override { return host_.NewSymbolDialog(); }
    host::Ref<host::IHostScratchWorkspaceFactory> NewScratchWorkspaceFactory() override { return host_.NewScratchWorkspaceFactory(); }
    host::Ref<host::IHostWorkspaceFactory> NewWorkspaceFactory() override { return host_.NewWorkspaceFactory(); }
    host::Ref<host::IHostFields> NewFields() override { return host_.NewFields(); }
    host::Ref<host::IHostField> NewField() override { return host_.NewField(); }
    host::Ref<host::IHostQueryFilter> NewQueryFilter() override { return host_.NewQueryFilter(); }
    host::Ref<host::IHostIdentifier> NewIdentifier() override { return host_.NewIdentifier(); }
    host::Ref<host::IHostTableSort> NewTableSort() override { return host_.NewTableSort(); }
    host::Ref<host::CVNLayoutContext> NewLayoutContext() override { return host_.NewLayoutContext(); }
    host::Ref<host::CVNMapBook> NewMapBook() override { return host_.NewMapBook(); }
    host::Ref<host::MapSeriesManager> NewMapSeriesManager() override { return host_.NewMapSeriesManager(); }
    host::Ref<host::CVNExpressionEngine> NewExpressionEngine() override { return host_.NewExpressionEngine(); }
    host::Ref<host::IHostComponentRegistrar> NewComponentRegistrar() override { return host_.NewComponentRegistrar(); }
    host::IHostLocale& Locale() override { return host_.Locale(); }
    host::IHostDialogs& Dialogs() override { return host_.Dialogs(); }
    bool FileExists(const std::string& path) override { return host_.FileExists(path); }
    // clang-format on

private:
    host::IHost& host_;
};

}  // namespace gazetteer
