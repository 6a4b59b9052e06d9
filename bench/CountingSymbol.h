#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "support/PassingSymbol.h"

namespace bench {

/// Forwards to another text symbol and counts the measurements.
class CountingSymbol final : public support::PassingSymbol {
public:
    using PassingSymbol::PassingSymbol;

    /// Returns the count since the last call.
    std::size_t TakeQuestions() { return std::exchange(questions_, 0); }

    host::TextExtent MeasureText(host::DeviceContext device,
                                 const host::Ref<host::IHostDisplayTransformation>& transformation,
                                 const std::string& text) override {
        ++questions_;
        return PassingSymbol::MeasureText(device, transformation, text);
    }

private:
    std::size_t questions_ = 0;
};

}  // namespace bench
