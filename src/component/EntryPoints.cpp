// Entry points of the component library; host/Component.h documents them.

#include <array>
#include <cstdint>
#include <dlfcn.h>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "component/LiveObjects.h"
#include "host/Component.h"
#include "host/Failure.h"
#include "host/Host.h"
#include "manager/CVNGazetteerManager.h"
#include "page/GazetteerPropertyPage.h"
#include "support/CategoryInstall.h"
#include "support/ErrorHandling.h"
#include "typesetting/TypesettingPropertyPage.h"

namespace gazetteer {
namespace {

using Object = host::Ref<host::IHostObject>;
using Make = Object (*)(const host::Ref<host::IHost>& host);

/// The library file that contains this code.
struct OwnFile {
    std::string folder;
    std::string baseName;  ///< Without the ending.
};

// Throws if the loader does not know the file.
OwnFile FindOwnFile() {
    static const char here = 0;
    Dl_info info{};
    if (::dladdr(&here, &info) == 0 || info.dli_fname == nullptr)
        throw host::Failure(host::kFailureUnspecified, "CVNGazetteer.FindOwnFile",
                            "The component's own file is not known.");
    const auto file = std::filesystem::absolute(info.dli_fname);
    return {file.parent_path().string(), file.stem().string()};
}

template <class T, class... Arguments>
host::Ref<T> MakeCounted(Arguments&&... arguments) {
    const auto counted = std::make_shared<Counted<T>>(std::forward<Arguments>(arguments)...);
    return {counted, &counted->object};
}

template <class T>
Object MakeWithHost(const host::Ref<host::IHost>& host) {
    return MakeCounted<T>(host);
}

Object MakeCategoryInstall(const host::Ref<host::IHost>& host) {
    const OwnFile file = FindOwnFile();
    return MakeCounted<CategoryInstall>(host, file.folder, file.baseName);
}

struct PublicClass {
    std::string_view name;
    Make make;
};

constexpr std::array kClasses{
    PublicClass{"CVNGazetteer.GazetteerPropertyPage", MakeWithHost<GazetteerPropertyPage>},
    PublicClass{"CVNGazetteer.TypesettingPropertyPage", MakeWithHost<TypesettingPropertyPage>},
    PublicClass{"CVNGazetteer.CVNGazetteerManager", MakeWithHost<CVNGazetteerManager>},
    PublicClass{"CVNGazetteer.CategoryInstall", MakeCategoryInstall},
    PublicClass{"CVNGazetteer.CategoryIDs", MakeWithHost<CategoryIDs>},
};

class ClassFactory final : public host::IHostClassFactory {
public:
    explicit ClassFactory(Make make) : make_(make) {}
    Object CreateInstance(const host::Ref<host::IHost>& host) override { return make_(host); }

private:
    Make make_;
};

host::Ref<host::IHostClassFactory> CreateClassObject(std::string_view className) {
    for (const auto& known : kClasses)
        if (known.name == className) return MakeCounted<ClassFactory>(known.make);
    return nullptr;
}

std::int32_t Install(const host::Ref<host::IHost>* host, bool install,
                     std::string* message) noexcept try {
    const auto file = FindOwnFile();
    CategoryInstall installer(*host, file.folder, file.baseName);
    const std::int32_t number = installer.Install(install);
    *message = installer.ErrorMessage();
    return number;
} catch (...) {
    const auto failure = CurrentFailure();
    *message = failure.description;
    return failure.number;
}

}  // namespace
}  // namespace gazetteer

extern "C" {

void ComponentCreateClassObject(const char* className,
                                host::Ref<host::IHostClassFactory>* factory) noexcept try {
    *factory = className == nullptr ? nullptr : gazetteer::CreateClassObject(className);
} catch (...) {
    factory->reset();
}

std::int32_t ComponentRegister(const host::Ref<host::IHost>* host, std::string* message) noexcept {
    return gazetteer::Install(host, true, message);
}

std::int32_t ComponentUnregister(const host::Ref<host::IHost>* host,
                                 std::string* message) noexcept {
    return gazetteer::Install(host, false, message);
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
