#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace gis {

/// Collects the notes about a table while it is read. Each is one sentence that begins with the
/// table's path.
class TableNotes {
public:
    explicit TableNotes(std::string path) : path_(std::move(path)) {}

    /// Notes what may be wrong in print.
    void AddFault(const std::string& fault);
    /// Notes something that changes no text.
    void AddRemark(const std::string& remark);
    /// Notes a field's first faulty value; further ones in the field, counted from 0, are left out.
    void AddFaultyValue(std::size_t field, const std::string& fieldName, std::int64_t record,
                        const std::string& fault);

    const std::string& Path() const { return path_; }
    /// Faults and remarks in the order in which they were found.
    const std::vector<std::string>& All() const { return all_; }
    const std::vector<std::string>& Faults() const { return faults_; }
    const std::vector<std::string>& Remarks() const { return remarks_; }

private:
    std::string path_;
    std::vector<std::string> all_;
    std::vector<std::string> faults_;
    std::vector<std::string> remarks_;
    std::vector<bool> hasFaultyValue_;  ///< By field.
};

}  // namespace gis
