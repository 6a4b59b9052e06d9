#include "desk/components/ComponentLibrary.h"

#include <utility>

#include "desk/components/SharedLibrary.h"
#include "host/Failure.h"

namespace desk {

namespace {

[[noreturn]] void Fail(std::int32_t number, const std::string& sentence) {
    throw host::Failure(number, "desk::ComponentLibrary", sentence);
}

}  // namespace

struct ComponentLibrary::Loaded {
    explicit Loaded(const std::string& file) : library("The component library", file) {
        createClassObject = Entry<host::CreateClassObjectEntry>(host::kCreateClassObject);
        enter = Entry<host::RegisterEntry>(host::kRegister);
        takeOut = Entry<host::RegisterEntry>(host::kUnregister);
        canUnload = Entry<host::CanUnloadEntry>(host::kCanUnload);
    }
    ~Loaded() {
        if (!canUnload()) library.Keep();
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    template <class T>
    T Entry(const char* name) const {
        void* const address = library.Find(name);
        if (address == nullptr)
            Fail(host::kFailureNotFound, "The library \"" + library.File() +
                                             "\" is no component: it has no entry point \"" + name +
                                             "\".");
        return reinterpret_cast<T>(address);
    }

    SharedLibrary library;
    host::CreateClassObjectEntry createClassObject = nullptr;
    host::RegisterEntry enter = nullptr;
    host::RegisterEntry takeOut = nullptr;
    host::CanUnloadEntry canUnload = nullptr;
};

ComponentLibrary::ComponentLibrary(const std::string& file)
    : loaded_(std::make_shared<const Loaded>(file)) {}

host::Ref<host::IHostObject> ComponentLibrary::CreateInstance(
    const std::string& className, const host::Ref<host::IHost>& host) const {
    // Members are destroyed in reverse order: the object before the library with its code.
    struct Instance {
        std::shared_ptr<const Loaded> library;
        host::Ref<host::IHostObject> object;
    };
    host::Ref<host::IHostClassFactory> factory;
    loaded_->createClassObject(className.c_str(), &factory);
    if (!factory)
        Fail(host::kFailureNotFound, "The component library \"" + loaded_->library.File() +
                                         "\" has no class \"" + className + "\".");
    const auto instance =
        std::make_shared<const Instance>(Instance{loaded_, factory->CreateInstance(host)});
    return {instance, instance->object.get()};
}

void ComponentLibrary::Register(const host::Ref<host::IHost>& host, bool install) const {
    std::string message;
    const auto call = install ? loaded_->enter : loaded_->takeOut;
    if (const std::int32_t number = call(&host, &message); number != 0) Fail(number, message);
}

bool ComponentLibrary::CanUnload() const {
    return loaded_->canUnload();
}

}  // namespace desk
