#include "gis/module/GisModule.h"
#include "gis/tables/Dataset.h"
#include "gis/tables/GdalTable.h"

namespace {

class Module : public gis::GisModule {
public:
    std::vector<std::string> Layers(const std::string& source) override {
        return gis::LayerNames(source);
    }
    std::shared_ptr<gis::SourceTable> OpenTable(const std::string& source,
                                                const std::string& layer) override {
        return std::make_shared<gis::GdalTable>(source, layer);
    }
};

}  // namespace

extern "C" gis::GisModule* GazetteerGisModule1() {
    static Module module;
    return &module;
}
