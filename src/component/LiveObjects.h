#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

namespace gazetteer {

/// Number of objects of the component that hosts hold.
inline std::atomic<std::int64_t> liveObjects = 0;

/// Counts its object in liveObjects from before construction until after destruction.
template <class T>
class Counted final {
    struct Mark {
        Mark() { ++liveObjects; }
        ~Mark() { --liveObjects; }
        Mark(const Mark&) = delete;
        Mark& operator=(const Mark&) = delete;
    };

    Mark mark_;

public:
    template <class... Arguments>
    explicit Counted(Arguments&&... arguments) : object(std::forward<Arguments>(arguments)...) {}

    T object;
};

}  // namespace gazetteer
