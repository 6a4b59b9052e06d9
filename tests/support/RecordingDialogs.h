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
        std::vector<host::FailureFact> facts;
        std::string cause;
    };

    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override {
        Message message{request.title, request.text, request.style, {}, {}};
        if (request.failure) {
            message.facts = request.failure->facts;
            message.cause = request.failure->cause;
        }
        messages.push_back(message);
        return request.style == host::kYesNo ? answer : host::MessageAnswer::Ok;
    }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return input;
    }
    void Beep() override { ++beeps; }

    /// The first text of the last failure shown; empty if none was.
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
