#pragma once

#include <string>
#include <vector>

#include "host/Dialogs.h"

namespace support {

/// Dialogs that nobody sees: every message is kept, every question is answered as told.
class RecordingDialogs : public host::IHostDialogs {
public:
    struct Message {
        std::string title;
        std::string text;
        std::int32_t style;
        std::string cause;  ///< The first text of the failure shown, if one is.
        std::vector<host::FailureFact> facts;
    };

    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override {
        messages.push_back({request.title, request.text, request.style, {}, {}});
        if (request.failure) {
            messages.back().cause = request.failure->cause;
            messages.back().facts = request.failure->facts;
        }
        return request.style == host::kYesNo ? answer : host::MessageAnswer::Ok;
    }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return input;
    }
    void Beep() override { ++beeps; }

    std::string LastCause() const { return messages.empty() ? "" : messages.back().cause; }
    std::string LastFact(const std::string& name) const {
        if (!messages.empty())
            for (const auto& fact : messages.back().facts)
                if (fact.name == name) return fact.value;
        return {};
    }

    std::vector<Message> messages;
    host::MessageAnswer answer = host::MessageAnswer::Yes;
    std::optional<std::string> input;
    int beeps = 0;
};

}  // namespace support
