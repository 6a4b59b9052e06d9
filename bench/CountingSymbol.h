#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "support/PassingSymbol.h"

namespace bench {

/// A text symbol that passes everything on to another and counts what it is asked for sizes. The
/// steps of a line are one question, however many they are, also where they are not told.
class CountingSymbol final : public support::PassingSymbol, public host::IHostTextSteps {
public:
    explicit CountingSymbol(host::Ref<host::IHostTextSymbol> symbol)
        : PassingSymbol(std::move(symbol)), steps_(host::As<host::IHostTextSteps>(real_)) {}

    /// Since the last call.
    std::size_t TakeQuestions() { return std::exchange(questions_, 0); }

    host::TextExtent MeasureText(host::DeviceContext device,
                                 const host::Ref<host::IHostDisplayTransformation>& transformation,
                                 const std::string& text) override {
        ++questions_;
        return PassingSymbol::MeasureText(device, transformation, text);
    }
    bool MeasureSteps(host::DeviceContext device,
                      const host::Ref<host::IHostDisplayTransformation>& transformation,
                      const std::string& line, host::TextSteps& steps) override {
        ++questions_;
        return steps_ && steps_->MeasureSteps(device, transformation, line, steps);
    }

private:
    host::Ref<host::IHostTextSteps> steps_;
    std::size_t questions_ = 0;
};

}  // namespace bench
