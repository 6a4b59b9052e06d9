#include "component/OwnFile.h"

#include <dlfcn.h>
#include <filesystem>

#include "host/Failure.h"

namespace gazetteer {

OwnFile FindOwnFile() {
    static const char here = 0;
    Dl_info info{};
    if (::dladdr(&here, &info) == 0 || info.dli_fname == nullptr)
        throw host::Failure(host::kFailureUnspecified, "CVNGazetteer.FindOwnFile",
                            "The component's own file is not known.");
    const auto file = std::filesystem::absolute(info.dli_fname);
    return {file.parent_path().string(), file.stem().string()};
}

}  // namespace gazetteer
