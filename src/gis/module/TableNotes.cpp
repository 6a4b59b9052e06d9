#include "gis/module/TableNotes.h"

namespace gis {

void TableNotes::AddFault(const std::string& fault) {
    all_.push_back(path_ + ": " + fault);
    faults_.push_back(all_.back());
}

void TableNotes::AddRemark(const std::string& remark) {
    all_.push_back(path_ + ": " + remark);
    remarks_.push_back(all_.back());
}

void TableNotes::AddFaultyValue(std::size_t field, const std::string& fieldName,
                                std::int64_t record, const std::string& fault) {
    if (field >= hasFaultyValue_.size()) hasFaultyValue_.resize(field + 1);
    if (hasFaultyValue_[field]) return;
    hasFaultyValue_[field] = true;
    AddFault("record " + std::to_string(record) + ", field " + fieldName + ": " + fault +
             ". Further ones in this field are not listed.");
}

}  // namespace gis
