#pragma once

#include <functional>
#include <map>
#include <string>

#include "host/Commands.h"

namespace desk {

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
