#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "host/PropertyPages.h"

namespace desk {

class ObjectSet final : public host::IHostObjectSet {
public:
    explicit ObjectSet(std::vector<host::Ref<host::IHostObject>> objects)
        : objects_(std::move(objects)) {}

    void Reset() override { next_ = 0; }
    host::Ref<host::IHostObject> Next() override {
        return next_ < objects_.size() ? objects_[next_++] : nullptr;
    }

private:
    std::vector<host::Ref<host::IHostObject>> objects_;
    std::size_t next_ = 0;
};

}  // namespace desk
