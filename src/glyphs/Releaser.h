#pragma once

namespace glyphs {

/// A deleter for std::unique_ptr that calls a library's own function.
template <auto Release>
struct Releaser {
    template <class T>
    void operator()(T* object) const {
        Release(object);
    }
};

}  // namespace glyphs
