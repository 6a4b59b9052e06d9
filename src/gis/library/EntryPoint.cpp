#include <filesystem>

#include "characters/FoldCase.h"
#include "gis/locate/LocateFeatures.h"
#include "gis/module/GisModule.h"
#include "gis/tables/CsvWriter.h"
#include "gis/tables/Dataset.h"
#include "gis/tables/GdalTable.h"
#include "gis/tables/GdalWriter.h"

namespace {

class Module : public gis::GisModule {
public:
    std::vector<std::string> Layers(const std::string& source) override {
        return gis::LayerNames(source);
    }
    std::shared_ptr<gis::SourceTable> OpenTable(const std::string& source, const std::string& layer,
                                                const std::string& where) override {
        return std::make_shared<gis::GdalTable>(source, layer, where);
    }
    bool IsPlainTable(const std::string& source) override { return gis::IsPlainTable(source); }
    std::unique_ptr<gis::TableWriter> CreateTable(
        const std::string& path, const std::vector<gis::SourceField>& fields) override {
        if (characters::FoldCase(std::filesystem::path(path).extension()) == ".csv")
            return std::make_unique<gis::CsvWriter>(path, fields);
        return std::make_unique<gis::GdalWriter>(path, fields);
    }
    gis::LocateResult Locate(const gis::LocateJob& job) override {
        return gis::LocateFeatures(job);
    }
};

}  // namespace

extern "C" gis::GisModule* GazetteerGisModule1() {
    static Module module;
    return &module;
}
