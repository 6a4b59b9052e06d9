#include "desk/components/GisLibrary.h"

#include <cstdlib>
#include <filesystem>

#include "desk/components/SharedLibrary.h"
#include "host/Failure.h"

namespace desk {
namespace {

std::string ModuleFile() {
    return LibraryOfProgram("gazetteer/libgazetteer-gdal.so");
}

void Build() {
    const char* const command = std::getenv("GAZETTEER_GDAL_BUILD");
    if (command != nullptr && std::system(command) != 0)  // NOLINT(cert-env33-c): the user's own.
        throw host::Failure(host::kFailureUnspecified, "LoadGisModule",
                            std::string("The library that reads the sources of a GIS could not be "
                                        "built: \"") +
                                command + "\" failed.");
}

gis::GisModule& Load(const std::string& file) {
    SharedLibrary library("The library", file);
    const auto entry = reinterpret_cast<gis::GisModuleEntry>(library.Find(gis::kGisModuleEntry));
    if (entry == nullptr)
        throw host::Failure(host::kFailureUnspecified, "LoadGisModule",
                            "The library \"" + file +
                                "\" is of another version than this program; both packages, "
                                "gazetteer and gazetteer-gdal, must be of the same version.");
    // GDAL leaves threads' data and exit handlers behind.
    library.Keep();
    return *entry();
}

}  // namespace

gis::GisModule& LoadGisModule(const std::string& purpose) {
    static gis::GisModule* module = nullptr;
    if (module != nullptr) return *module;
    const std::string file = ModuleFile();
    if (!std::filesystem::exists(file)) Build();
    if (!std::filesystem::exists(file))
        throw host::Failure(
            host::kFailureNotFound, "LoadGisModule",
            purpose +
                " needs the package gazetteer-gdal, which is not installed (in a clone of the "
                "source, scripts/gis builds it).");
    module = &Load(file);
    return *module;
}

bool GisModuleNeedsNoBuilding() {
    return std::getenv("GAZETTEER_GDAL_BUILD") == nullptr || std::filesystem::exists(ModuleFile());
}

}  // namespace desk
