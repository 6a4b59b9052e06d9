#include "desk/components/SharedLibrary.h"

#include <dlfcn.h>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/Failure.h"

namespace desk {
namespace {

std::string LoaderMessage() {
    const char* const message = ::dlerror();
    return message == nullptr ? "unknown reason" : message;
}

}  // namespace

SharedLibrary::SharedLibrary(std::string words, std::string file) : file_(std::move(file)) {
    const std::string name = std::move(words) + " \"" + file_ + '"';
    std::error_code ignored;
    if (!std::filesystem::exists(file_, ignored))
        throw host::Failure(host::kFailureNotFound, "SharedLibrary", name + " is not there.");
    handle_ = ::dlopen(std::filesystem::absolute(file_).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ == nullptr)
        throw host::Failure(host::kFailureUnspecified, "SharedLibrary",
                            name + " cannot be loaded: " + LoaderMessage() + ".");
}

SharedLibrary::~SharedLibrary() {
    if (handle_ != nullptr) ::dlclose(handle_);
}

void* SharedLibrary::Find(const char* entry) const {
    return ::dlsym(handle_, entry);
}

std::string LibraryOfProgram(const std::string& name) {
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    return (program.parent_path().parent_path() / "lib" / name).string();
}

}  // namespace desk
