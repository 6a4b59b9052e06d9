#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

namespace gazetteer {

/// Number of the component's objects that a host holds.
inline std::atomic<std::int64_t> liveObjects = 0;

/// A class whose objects are counted from before their construction until they are gone.
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
