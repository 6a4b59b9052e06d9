#include <cstdio>

#include "app/JsonAnswer.h"
#include "app/Session.h"
#include "app/commands/Commands.h"

namespace app {

int Check(const CommonOptions& common, const DocumentOptions& options) {
    Session session(common);
    session.Look(options.document);
    gazetteer::Findings reasons;
    const bool drawable = session.CanDraw(reasons);
    if (options.json) {
        PrintAnswer(2, [&](JsonAnswer& json) {
            json.Member("drawable", drawable);
            json.Member("reasons", reasons);
        });
        return 0;
    }
    std::puts(drawable ? "The gazetteer can be drawn." : "The gazetteer cannot be drawn:");
    for (const auto& reason : reasons) std::printf("  %s\n", reason.c_str());
    return 0;
}

}  // namespace app
