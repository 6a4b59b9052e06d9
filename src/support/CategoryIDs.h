#pragma once

#include "host/Host.h"

namespace gazetteer {

/// The host's component categories, as identifiers.
struct ICategoryIDs : virtual host::IHostObject {
    /// A new identifier with a text as its value.
    virtual host::Ref<host::IHostIdentifier> MakeUID(const std::string& text) = 0;
    /// The category of the property pages of elements.
    virtual host::Ref<host::IHostIdentifier> ElementPropertyPages() = 0;
};

class CategoryIDs : public ICategoryIDs {
public:
    explicit CategoryIDs(host::Ref<host::IHost> host);

    host::Ref<host::IHostIdentifier> MakeUID(const std::string& text) override;
    host::Ref<host::IHostIdentifier> ElementPropertyPages() override;

private:
    host::Ref<host::IHost> host_;
};

}  // namespace gazetteer
