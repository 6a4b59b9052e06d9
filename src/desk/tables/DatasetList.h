#pragma once

#include <utility>
#include <vector>

#include "host/Tables.h"

namespace desk {

/// Datasets one after another.
class DatasetList : public host::IHostDatasetEnum {
public:
    explicit DatasetList(std::vector<host::Ref<host::IHostDataset>> datasets)
        : datasets_(std::move(datasets)) {}

    host::Ref<host::IHostDataset> Next() override {
        return next_ < datasets_.size() ? datasets_[next_++] : nullptr;
    }

private:
    std::vector<host::Ref<host::IHostDataset>> datasets_;
    std::size_t next_ = 0;
};

}  // namespace desk
