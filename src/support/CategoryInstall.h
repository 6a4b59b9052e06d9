#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"

namespace gazetteer {

/// Enters the property pages under the host's category of element property pages, or takes them
/// out. It may run unattended: it shows no dialog and does not throw.
struct ICategoryInstall : virtual host::IHostObject {
    /// The description of the last Install's failure; empty after success.
    virtual std::string ErrorMessage() const = 0;
    /// Returns 0, or the number of the failure. The options have no effect.
    virtual std::int32_t Install(bool install, const std::string& customOptions = {}) = 0;
};

class CategoryInstall : public ICategoryInstall {
public:
    /// Takes the folder of the component's own file and its name without the extension.
    CategoryInstall(host::Ref<host::IHost> host, std::string folder, std::string baseName);

    std::string ErrorMessage() const override { return errorMessage_; }
    std::int32_t Install(bool install, const std::string& customOptions = {}) override;

private:
    void Enter(bool install);

    host::Ref<host::IHost> host_;
    std::string folder_;
    std::string baseName_;
    std::string errorMessage_;
};

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
