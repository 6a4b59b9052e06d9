#include "app/document/BehindMaps.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

#include "app/document/Errors.h"
#include "desk/files/ReplacingFile.h"
#include "pdf/existing/AppendPages.h"

namespace app {
namespace {

/// Writes to a file that appears when it is complete.
class FileOutput final : public pdf::Output {
public:
    explicit FileOutput(const std::string& path)
        : file_(path, desk::ReplacingFile::Devices::WriteAtOnce) {}
    void Write(std::string_view bytes) override {
        if (!file_.Write(bytes)) file_.Check();
    }
    void Commit() { file_.Commit(); }

private:
    desk::ReplacingFile file_;
};

}  // namespace

BehindMaps::BehindMaps() {
    std::error_code error;
    std::string name =
        (std::filesystem::temp_directory_path(error) / "gazetteer-XXXXXX.pdf").string();
    const int file = ::mkstemps(name.data(), 4);
    if (error || file < 0)
        throw CommandError("No file can be made in the folder for temporary files.");
    ::close(file);
    index_.Take(name);
}

void BehindMaps::Write(const MapPages& maps, const std::string& title,
                       const std::string& path) const try {
    FileOutput output(path);
    pdf::AppendPages(maps.Path(), IndexPath(), title, maps.Destinations(), output);
    output.Commit();
} catch (const pdf::Error& error) {
    throw CommandError(error.what());
}

}  // namespace app
