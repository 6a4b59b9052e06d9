#pragma once

#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "ReferenceSplitText.h"
#include "layout/TextFit.h"
#include "support/FailureOf.h"
#include "support/TestHost.h"

/// Fits texts as shipped and by the plain loops, which must come to the same.
class BothFits {
public:
    using Symbol = host::Ref<host::IHostTextSymbol>;

    explicit BothFits(support::TestHost& host)
        : host_(host.Host()), display_(host.Display()), fit_(host_, display_) {}

    /// What the text is fitted to, or "failed: " and the cause.
    std::string Fit(const std::string& text, double width, const Symbol& symbol) {
        const auto shipped =
            Outcome(text, [&](std::string& t) { return fit_.SplitText(t, width, symbol); });
        EXPECT_EQ(shipped, Plain(text, width, symbol))
            << '"' << text << "\" in " << symbol->Font()->Name() << ", width " << width;
        return shipped.first;
    }
    /// What the plain loops come to, and what is left of the text.
    std::pair<std::string, std::string> Plain(const std::string& text, double width,
                                              const Symbol& symbol) {
        return Outcome(text, [&](std::string& t) {
            return reference::SplitText(host_, display_, t, width, symbol);
        });
    }

private:
    template <class Call>
    static std::pair<std::string, std::string> Outcome(std::string text, const Call& fit) {
        std::string result;
        const auto failure = support::FailureOf([&] { result = fit(text); });
        if (failure.number != 0) return {"failed: " + failure.cause, {}};
        return {result, text};
    }

    host::IHost& host_;
    host::Ref<host::IHostDisplay> display_;
    gazetteer::TextFit fit_;
};
