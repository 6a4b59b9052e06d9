#include <cstdio>
#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/commands/JsonAnswer.h"
#include "app/document/RunTexts.h"

namespace app {
namespace {

struct CheckOptions {
    std::string document;
    bool json = false;
};

int Check(const CommonOptions& common, const CheckOptions& options) {
    CommandSession session(common);
    auto& document = session.Look(options.document);
    gazetteer::Findings reasons;
    const bool drawable = document.CanDraw(reasons);
    if (options.json) {
        PrintAnswer(2, [&](JsonAnswer& json) {
            json.Member("drawable", drawable);
            json.Member("reasons", reasons);
        });
        return 0;
    }
    std::puts(drawable ? "The gazetteer can be drawn." : UndrawableLines(reasons).c_str());
    return 0;
}

}  // namespace

void AddCheck(Arguments& program) {
    const auto options = std::make_shared<CheckOptions>();
    auto command =
        AddCommand(program, "check", "Say whether the gazetteer can be drawn, and if not, why",
                   [options](const CommonOptions& common) { return Check(common, *options); });
    AddDocument(command, options->document)
        .Flag("--json", options->json, "As JSON")
        .Help(kCheckHelp);
}

}  // namespace app
