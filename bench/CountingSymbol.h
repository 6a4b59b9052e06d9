#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "support/PassingSymbol.h"

namespace bench {

/// A text symbol that passes everything on to another and counts what it is asked for sizes.
class CountingSymbol final : public support::PassingSymbol {
public:
    using PassingSymbol::PassingSymbol;

    /// Since the last call.
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
