#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/window/WindowSession.h"
#include "desk/components/ComponentLibrary.h"

namespace app {

/// Creates the property pages of registered components. Keeps their libraries loaded.
class ElementPages {
public:
    using Page = host::Ref<host::IComPropertyPage>;

    /// Returns new pages in the order of registration; warns about pages that cannot be created.
    std::vector<Page> Make(WindowSession& session);

private:
    Page MakeOne(const host::Ref<host::IHost>& host, const std::string& file,
                 const std::string& classId);

    std::map<std::string, std::shared_ptr<desk::ComponentLibrary>> libraries_;
};

}  // namespace app
