#pragma once

#include <cstdint>
#include <string>

#include "host/Host.h"

namespace gazetteer {

/// Enters the property page under the host's category of element property pages, or takes it out.
/// It may run without a user, so that it shows no dialog and lets no failure out.
struct ICategoryInstall : virtual host::IHostObject {
    /// The description of the last Install's failure; empty after one that succeeded.
    virtual std::string ErrorMessage() const = 0;
    /// 0, or the number of the failure. The options are of no effect.
    virtual std::int32_t Install(bool install, const std::string& customOptions = {}) = 0;
};

class CategoryInstall : public ICategoryInstall {
public:
    /// With the folder of the component's own file and its name without the ending.
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

}  // namespace gazetteer
