#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desk/components/ComponentLibrary.h"
#include "host/Host.h"

namespace app {

/// The property pages that components have entered with the host. Libraries stay loaded, as pages
/// are wanted again and again.
class ElementPages {
public:
    /// New pages, in the order in which they were entered. What keeps one from being made is told
    /// in a message, and the others are still there.
    std::vector<host::Ref<host::IComPropertyPage>> Make(const host::Ref<host::IHost>& host);

private:
    host::Ref<host::IComPropertyPage> MakeOne(const host::Ref<host::IHost>& host,
                                              const std::string& file, const std::string& classId);

    std::map<std::string, std::shared_ptr<desk::ComponentLibrary>> libraries_;
};

}  // namespace app
