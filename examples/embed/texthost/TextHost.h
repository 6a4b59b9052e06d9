#pragma once

#include "MapBook.h"
#include "Services.h"
#include "Tables.h"

namespace texthost {

/// Makes every object that a run and a drawing ask for. What only a window needs is not there. A
/// host that has more derives from it.
class TextHost : public host::IHost {
public:
    /// The tables that it opens, by the names under which listing databases are stored.
    Workspace& Tables() { return *workspace_; }
    void UseBook(Ref<MapBook> book) { book_ = std::move(book); }

    Ref<host::IHostPropertySet> NewPropertySet() override { return New<PropertySet>(); }
    Ref<host::IHostObjectCopy> NewObjectCopy() override { return New<ObjectCopy>(); }

    Ref<host::IHostPoint> NewPoint() override { return New<Point>(); }
    Ref<host::IHostEnvelope> NewEnvelope() override { return New<Envelope>(); }
    Ref<host::IHostLine> NewLine() override { return New<Line>(); }

    Ref<host::IHostFont> NewFont() override { return New<Font>(); }
    Ref<host::IHostColor> NewColor() override { return New<Color>(); }
    Ref<host::IHostTextSymbol> NewTextSymbol() override { return New<TextSymbol>(); }
    Ref<host::IHostFillSymbol> NewFillSymbol() override { return New<FillSymbol>(); }
    Ref<host::IHostLineSymbol> NewLineSymbol() override { return New<LineSymbol>(); }

    Ref<host::IHostGroupElement> NewGroupElement() override { return New<GroupElement>(); }
    Ref<host::IHostTextElement> NewTextElement() override { return New<TextElement>(); }
    Ref<host::IHostFilledElement> NewRectangleElement() override { return New<RectangleElement>(); }

    Ref<host::IHostApplication> NewApplication() override { return application_; }
    Ref<host::IHostDisplayTransformation> NewDisplayTransformation() override {
        return New<DisplayTransformation>();
    }
    Ref<host::IHostPixelSurface> NewPixelSurface(std::int32_t, std::int32_t, double) override {
        NoWindow();
    }
    Ref<host::IHostObjectDialog> NewObjectDialog() override { NoWindow(); }
    Ref<host::IHostObjectFilter> NewTableFilter() override { NoWindow(); }
    Ref<host::IHostSymbolDialog> NewSymbolDialog() override { NoWindow(); }
    Ref<host::IHostComponentRegistrar> NewComponentRegistrar() override { NoWindow(); }

    Ref<host::IHostScratchWorkspaceFactory> NewScratchWorkspaceFactory() override {
        return workspace_;
    }
    Ref<host::IHostWorkspaceFactory> NewWorkspaceFactory() override { return workspace_; }
    Ref<host::IHostFields> NewFields() override { return New<Fields>(); }
    Ref<host::IHostField> NewField() override { return New<Field>(); }
    Ref<host::IHostQueryFilter> NewQueryFilter() override { return New<QueryFilter>(); }
    Ref<host::IHostIdentifier> NewIdentifier() override { return New<Identifier>(); }
    Ref<host::IHostTableSort> NewTableSort() override { return New<TableSort>(); }

    Ref<host::CVNLayoutContext> NewLayoutContext() override { return book_; }
    Ref<host::CVNMapBook> NewMapBook() override { return book_; }
    Ref<host::MapSeriesManager> NewMapSeriesManager() override { return New<MapSeries>(); }
    Ref<host::CVNExpressionEngine> NewExpressionEngine() override {
        return New<ExpressionEngine>();
    }

    host::IHostLocale& Locale() override { return locale_; }
    host::IHostDialogs& Dialogs() override { return dialogs_; }
    host::IHostDevices& Devices() override { NoWindow(); }
    bool FileExists(const std::string& path) override { return workspace_->Has(path); }

private:
    template <class T>
    static Ref<T> New() {
        return std::make_shared<T>();
    }
    [[noreturn]] static void NoWindow() { Fail("This host has no window."); }

    Ref<Workspace> workspace_ = std::make_shared<Workspace>();
    Ref<MapBook> book_ = std::make_shared<MapBook>();
    Ref<Application> application_ = std::make_shared<Application>();
    texthost::Locale locale_;
    texthost::Dialogs dialogs_;
};

}  // namespace texthost
