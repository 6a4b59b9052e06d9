#include "FuzzDesk.h"

#include "Checks.h"

namespace fuzz {
namespace {

struct Dialogs final : host::IHostDialogs {
    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override {
        if (request.failure != nullptr) {
            RequireSentence(*request.failure);
            // The form of a failure that was made from another exception.
            const bool foreign = request.failure->number == host::kFailureUnspecified &&
                                 request.failure->source.empty();
            Require(!foreign, request.failure->cause.c_str());
        }
        return request.style == host::kYesNo ? host::MessageAnswer::Yes : host::MessageAnswer::Ok;
    }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return std::nullopt;
    }
    void Beep() override {}
};

std::shared_ptr<desk::Desk> MakeDesk() {
    desk::DeskOptions options;
    options.locale = "en_US";
    options.dialogs = SilentDialogs();
    return std::make_shared<desk::Desk>(options);
}

}  // namespace

std::string SmallTable() {
    std::string bytes(32, '\0');
    bytes[0] = 3;
    bytes[2] = bytes[3] = bytes[4] = 1;
    bytes[8] = 97;
    bytes[10] = 13;
    for (const std::string& name : {std::string("Listing"), std::string("Page")}) {
        std::string entry(32, '\0');
        entry.replace(0, name.size(), name);
        entry[11] = 'C';
        entry[16] = 6;
        bytes += entry;
    }
    return bytes + "\r Main St     4";
}

host::Ref<host::IHostDialogs> SilentDialogs() {
    return std::make_shared<Dialogs>();
}

const std::shared_ptr<desk::Desk>& SharedDesk() {
    static const auto shared = MakeDesk();
    return shared;
}

}  // namespace fuzz
