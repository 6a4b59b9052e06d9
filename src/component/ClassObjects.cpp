#include "component/ClassObjects.h"

#include <array>
#include <memory>

#include "component/LiveObjects.h"
#include "component/OwnFile.h"
#include "manager/CVNGazetteerManager.h"
#include "page/GazetteerPropertyPage.h"
#include "support/CategoryIDs.h"
#include "support/CategoryInstall.h"

namespace gazetteer {
namespace {

using Object = host::Ref<host::IHostObject>;
using Make = Object (*)(const host::Ref<host::IHost>& host);

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

}  // namespace

host::Ref<host::IHostClassFactory> CreateClassObject(std::string_view className) {
    for (const auto& known : kClasses)
        if (known.name == className) return MakeCounted<ClassFactory>(known.make);
    return nullptr;
}

}  // namespace gazetteer
