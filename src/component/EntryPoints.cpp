// What a host finds in the component's library; host/Component.h tells of each.

#include <type_traits>

#include "component/ClassObjects.h"
#include "component/LiveObjects.h"
#include "component/OwnFile.h"
#include "host/Host.h"
#include "support/CategoryInstall.h"
#include "support/ErrorHandling.h"

namespace {

std::int32_t Install(const host::Ref<host::IHost>* host, bool install,
                     std::string* message) noexcept try {
    const auto file = gazetteer::FindOwnFile();
    gazetteer::CategoryInstall installer(*host, file.folder, file.baseName);
    const std::int32_t number = installer.Install(install);
    *message = installer.ErrorMessage();
    return number;
} catch (...) {
    const auto failure = gazetteer::CurrentFailure();
    *message = failure.description;
    return failure.number;
}

}  // namespace

extern "C" {

void ComponentCreateClassObject(const char* className,
                                host::Ref<host::IHostClassFactory>* factory) noexcept try {
    *factory = className == nullptr ? nullptr : gazetteer::CreateClassObject(className);
} catch (...) {
    factory->reset();
}

std::int32_t ComponentRegister(const host::Ref<host::IHost>* host, std::string* message) noexcept {
    return Install(host, true, message);
}

std::int32_t ComponentUnregister(const host::Ref<host::IHost>* host,
                                 std::string* message) noexcept {
    return Install(host, false, message);
}

bool ComponentCanUnload() noexcept {
    return gazetteer::liveObjects == 0;
}

}  // extern "C"

static_assert(
    std::is_convertible_v<decltype(&ComponentCreateClassObject), host::CreateClassObjectEntry>);
static_assert(std::is_convertible_v<decltype(&ComponentRegister), host::RegisterEntry>);
static_assert(std::is_convertible_v<decltype(&ComponentUnregister), host::RegisterEntry>);
static_assert(std::is_convertible_v<decltype(&ComponentCanUnload), host::CanUnloadEntry>);
