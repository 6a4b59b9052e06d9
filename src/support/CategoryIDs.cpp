#include "support/CategoryIDs.h"

#include <utility>

namespace gazetteer {

CategoryIDs::CategoryIDs(host::Ref<host::IHost> host) : host_(std::move(host)) {}

host::Ref<host::IHostIdentifier> CategoryIDs::MakeUID(const std::string& text) {
    auto identifier = host_->NewIdentifier();
    identifier->SetValue(text);
    return identifier;
}

host::Ref<host::IHostIdentifier> CategoryIDs::ElementPropertyPages() {
    return MakeUID(host::kElementPropertyPages);
}

}  // namespace gazetteer
