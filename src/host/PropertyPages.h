#pragma once

#include <cstdint>
#include <string>

#include "host/Object.h"

namespace host {

/// Handle of a window.
using WindowHandle = std::int32_t;

/// The objects that a property sheet is about. Next gives null at the end.
struct IHostObjectSet : virtual IHostObject {
    virtual void Reset() = 0;
    virtual Ref<IHostObject> Next() = 0;
};

/// The property sheet as a page sees it.
struct IHostPageSite : virtual IHostObject {
    /// Something on the page has been edited.
    virtual void PageChanged() = 0;
};

/// A page of a property sheet. The sheet calls SetPageSite, SetObjects, Activate and Show, then any
/// number of Hide, Show and Apply, then Deactivate. Applies may come at any time.
struct IComPropertyPage : virtual IHostObject {
    virtual void SetTitle(const std::string& title) = 0;
    virtual std::string Title() = 0;
    virtual void SetPriority(std::int32_t priority) = 0;
    virtual std::int32_t Priority() = 0;
    virtual std::int32_t Width() = 0;   ///< Pixels.
    virtual std::int32_t Height() = 0;  ///< Pixels.
    virtual void SetPageSite(const Ref<IHostPageSite>& site) = 0;
    virtual bool IsPageDirty() = 0;
    virtual std::string HelpFile() = 0;
    virtual std::int32_t HelpContextID(std::int32_t controlID) = 0;
    /// Creates the page's window for the sheet to embed, and returns its handle.
    virtual WindowHandle Activate() = 0;
    virtual void Deactivate() = 0;
    /// Whether the page can edit one of these objects. Changes nothing.
    virtual bool Applies(const Ref<IHostObjectSet>& objects) = 0;
    virtual void SetObjects(const Ref<IHostObjectSet>& objects) = 0;
    virtual void Show() = 0;
    virtual void Hide() = 0;
    virtual void Apply() = 0;
    virtual void Cancel() = 0;
};

}  // namespace host
