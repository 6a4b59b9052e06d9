#include "desk/components/ComponentLibrary.h"

#include <dlfcn.h>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/Failure.h"

namespace desk {

namespace {

[[noreturn]] void Fail(std::int32_t number, const std::string& sentence) {
    throw host::Failure(number, "desk::ComponentLibrary", sentence);
}

void CheckThere(const std::string& file) {
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored))
        Fail(host::kFailureNotFound, "The component library \"" + file + "\" is not there.");
}

std::string LoaderMessage() {
    const char* const message = ::dlerror();
    return message == nullptr ? "unknown reason" : message;
}

}  // namespace

struct ComponentLibrary::Loaded {
    explicit Loaded(std::string name) : file(std::move(name)) {
        CheckThere(file);
        handle = ::dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
        if (handle == nullptr)
            Fail(host::kFailureUnspecified, "The component library \"" + file +
                                                "\" cannot be loaded: " + LoaderMessage() + ".");
        try {
            createClassObject = Entry<host::CreateClassObjectEntry>(host::kCreateClassObject);
            enter = Entry<host::RegisterEntry>(host::kRegister);
            takeOut = Entry<host::RegisterEntry>(host::kUnregister);
            canUnload = Entry<host::CanUnloadEntry>(host::kCanUnload);
        } catch (...) {
            ::dlclose(handle);
            throw;
        }
    }
    ~Loaded() {
        if (canUnload()) ::dlclose(handle);
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    template <class T>
    T Entry(const char* name) const {
        void* const address = ::dlsym(handle, name);
        if (address == nullptr)
            Fail(host::kFailureNotFound, "The library \"" + file +
                                             "\" is no component: it has no entry point \"" + name +
                                             "\".");
        return reinterpret_cast<T>(address);
    }

    std::string file;
    void* handle = nullptr;
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
        Fail(host::kFailureNotFound,
             "The component library \"" + loaded_->file + "\" has no class \"" + className + "\".");
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

std::string LibraryOfProgram(const std::string& name) {
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    return (program.parent_path().parent_path() / "lib" / name).string();
}

}  // namespace desk
