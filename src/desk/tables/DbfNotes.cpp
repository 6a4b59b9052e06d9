#include "desk/tables/DbfNotes.h"

namespace desk {

void DbfNotes::AddValue(std::size_t field, const std::string& fieldName, std::int64_t record,
                        const std::string& fault) {
    if (field >= noted_.size()) noted_.resize(field + 1);
    if (noted_[field]) return;
    noted_[field] = true;
    Add("record " + std::to_string(record) + ", field " + fieldName + ": " + fault +
        ". Further ones in this field are not listed.");
}

}  // namespace desk
