#include "desk/session/CommandTable.h"

#include <memory>
#include <utility>

namespace desk {

namespace {

class CommandItem final : public host::IHostCommandItem {
public:
    explicit CommandItem(std::function<void()> action) : action_(std::move(action)) {}
    void Execute() override { action_(); }

private:
    std::function<void()> action_;
};

}  // namespace

void CommandTable::Add(const std::string& name, std::function<void()> action) {
    items_[name] = std::make_shared<CommandItem>(std::move(action));
}

host::Ref<host::IHostCommandItem> CommandTable::Find(
    const host::Ref<host::IHostIdentifier>& identifier, bool /*create*/, bool /*hidden*/) {
    const auto found = items_.find(identifier->Value());
    return found == items_.end() ? nullptr : found->second;
}

}  // namespace desk
