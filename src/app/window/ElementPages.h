#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/window/WindowSession.h"
#include "desk/components/ComponentLibrary.h"

namespace app {

/// Creates the property pages of the registered components. Keeps their libraries loaded for the
/// next call.
class ElementPages {
public:
    using Page = host::Ref<host::IComPropertyPage>;

    /// Returns new pages in the order of registration. Skips a page that cannot be created, with a
    /// warning.
    std::vector<Page> Make(WindowSession& session);

private:
    Page MakeOne(const host::Ref<host::IHost>& host, const std::string& file,
                 const std::string& classId);

    std::map<std::string, std::shared_ptr<desk::ComponentLibrary>> libraries_;
};

}  // namespace app
