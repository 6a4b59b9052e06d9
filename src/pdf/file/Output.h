#pragma once

#include <stdexcept>
#include <string_view>

namespace pdf {

/// What cannot be written, in one sentence.
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Receives the bytes of a file in order. Failures are the receiver's own exceptions.
class Output {
public:
    virtual ~Output() = default;
    virtual void Write(std::string_view bytes) = 0;
};

}  // namespace pdf
