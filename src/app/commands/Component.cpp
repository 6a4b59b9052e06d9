#include <dlfcn.h>

#include "app/Errors.h"
#include "app/commands/Commands.h"

namespace app {

// The library is loaded for this command alone, so that the program itself needs no display.
int Component(const CommonOptions&, bool install) {
    constexpr char kLibrary[] = "libCVNGazetteer.so";
    void* const library = ::dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throw CommandError(std::string("The component library ") + kLibrary +
                           " cannot be loaded: " + ::dlerror() + ".");
    const char* const entry = install ? "CVNGazetteerRegister" : "CVNGazetteerUnregister";
    const auto call = reinterpret_cast<std::int32_t (*)()>(::dlsym(library, entry));
    const bool done = call != nullptr && call() == 0;
    ::dlclose(library);
    if (!done)
        throw CommandError(std::string("The property page could not be ") +
                           (install ? "entered with the desk." : "taken out of the desk."));
    return kDone;
}

}  // namespace app
