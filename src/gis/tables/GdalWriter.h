#pragma once

#include <string>
#include <vector>

#include "gis/module/TableWriter.h"
#include "gis/tables/Dataset.h"

namespace gis {

/// Makes a table in the format of the path's ending: .dbf (in UTF-8, with a .cpg file) or .gpkg.
class GdalWriter : public TableWriter {
public:
    /// Throws host::Failure if the ending is none of these. Names of dBase fields must have no more
    /// than ten bytes, its texts no more than 254.
    GdalWriter(std::string path, std::vector<SourceField> fields);
    ~GdalWriter() override;

    void Add(const std::vector<host::Variant>& values) override;
    void Finish(const Store& store) override;

private:
    /// A folder in memory, where the files are made.
    struct Folder {
        Folder();
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;
        ~Folder();
        std::string path;
    };
    [[noreturn]] void Fail(const std::string& fault) const;
    void AddField(const SourceField& field);

    std::string path_;
    Folder folder_;
    std::vector<SourceField> fields_;
    GDALDatasetUniquePtr dataset_;
    OGRLayer* layer_ = nullptr;
};

}  // namespace gis
