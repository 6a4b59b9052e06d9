#pragma once

#include <string>

#include "host/Application.h"
#include "host/Component.h"
#include "host/Dialogs.h"
#include "host/Elements.h"
#include "host/Locale.h"
#include "host/MapBook.h"
#include "host/ObjectDialogs.h"
#include "host/PropertySet.h"
#include "host/Tables.h"

namespace host {

/// Makes every host object. It is handed in wherever an object is created, so that there is no
/// global host and a test can bring its own. Each New gives a new object; services are shared.
struct IHost : virtual IHostObject {
    virtual Ref<IHostPropertySet> NewPropertySet() = 0;
    virtual Ref<IHostObjectCopy> NewObjectCopy() = 0;

    virtual Ref<IHostPoint> NewPoint() = 0;
    virtual Ref<IHostEnvelope> NewEnvelope() = 0;
    virtual Ref<IHostLine> NewLine() = 0;

    virtual Ref<IHostFont> NewFont() = 0;
    virtual Ref<IHostColor> NewColor() = 0;
    virtual Ref<IHostTextSymbol> NewTextSymbol() = 0;
    virtual Ref<IHostFillSymbol> NewFillSymbol() = 0;
    virtual Ref<IHostLineSymbol> NewLineSymbol() = 0;

    virtual Ref<IHostGroupElement> NewGroupElement() = 0;
    virtual Ref<IHostTextElement> NewTextElement() = 0;
    virtual Ref<IHostFilledElement> NewRectangleElement() = 0;

    virtual Ref<IHostApplication> NewApplication() = 0;
    virtual Ref<IHostDisplayTransformation> NewDisplayTransformation() = 0;
    /// An area of pixels, at least 1 by 1, all transparent.
    virtual Ref<IHostPixelSurface> NewPixelSurface(std::int32_t width, std::int32_t height,
                                                   double dotsPerInch) = 0;

    // Dialogs fail where the host has no window.

    virtual Ref<IHostObjectDialog> NewObjectDialog() = 0;
    virtual Ref<IHostObjectFilter> NewTableFilter() = 0;
    virtual Ref<IHostSymbolDialog> NewSymbolDialog() = 0;
    virtual Ref<IHostComponentRegistrar> NewComponentRegistrar() = 0;

    virtual Ref<IHostScratchWorkspaceFactory> NewScratchWorkspaceFactory() = 0;
    virtual Ref<IHostWorkspaceFactory> NewWorkspaceFactory() = 0;
    virtual Ref<IHostFields> NewFields() = 0;
    virtual Ref<IHostField> NewField() = 0;
    virtual Ref<IHostQueryFilter> NewQueryFilter() = 0;
    virtual Ref<IHostIdentifier> NewIdentifier() = 0;
    virtual Ref<IHostTableSort> NewTableSort() = 0;

    virtual Ref<CVNLayoutContext> NewLayoutContext() = 0;
    virtual Ref<CVNMapBook> NewMapBook() = 0;
    virtual Ref<MapSeriesManager> NewMapSeriesManager() = 0;
    virtual Ref<CVNExpressionEngine> NewExpressionEngine() = 0;

    virtual IHostLocale& Locale() = 0;
    virtual IHostDialogs& Dialogs() = 0;
    virtual IHostDevices& Devices() = 0;
    virtual bool FileExists(const std::string& path) = 0;
};

}  // namespace host
