#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "texthost/Symbols.h"

namespace bench {

/// A text symbol that counts what it is asked for sizes, and tells those of another.
class CountingSymbol final : public texthost::TextSymbol {
public:
    explicit CountingSymbol(host::Ref<host::IHostTextSymbol> real) : real_(std::move(real)) {}

    /// Since the last call.
    std::size_t TakeQuestions() { return std::exchange(questions_, 0); }

    host::TextExtent MeasureText(host::DeviceContext device,
                                 const host::Ref<host::IHostDisplayTransformation>& transformation,
                                 const std::string& text) override {
        ++questions_;
        return real_->MeasureText(device, transformation, text);
    }

private:
    host::Ref<host::IHostTextSymbol> real_;
    std::size_t questions_ = 0;
};

}  // namespace bench
