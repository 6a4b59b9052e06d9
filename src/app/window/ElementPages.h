#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/window/WindowSession.h"
#include "desk/components/ComponentLibrary.h"

namespace app {

/// The property pages of the components that are registered with the host. Libraries stay loaded,
/// since pages are made again and again.
class ElementPages {
public:
    using Page = host::Ref<host::IComPropertyPage>;

    /// Returns new pages, in the order of their registration. A page that cannot be made is left
    /// out with a warning.
    std::vector<Page> Make(WindowSession& session);

private:
    Page MakeOne(const host::Ref<host::IHost>& host, const std::string& file,
                 const std::string& classId);

    std::map<std::string, std::shared_ptr<desk::ComponentLibrary>> libraries_;
};

}  // namespace app
