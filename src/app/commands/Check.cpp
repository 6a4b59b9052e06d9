#include <cstdio>
#include <nlohmann/json.hpp>

#include "app/commands/Commands.h"
#include "app/commands/Session.h"

namespace app {

int Check(const CommonOptions& common, const DocumentOptions& options) {
    Session session(common);
    session.Look(options.document);
    gazetteer::Findings reasons;
    const bool drawable = session.CanDraw(reasons);
    if (options.json) {
        const nlohmann::ordered_json json = {{"drawable", drawable}, {"reasons", reasons}};
        std::puts(json.dump(2).c_str());
        return 0;
    }
    std::puts(drawable ? "The gazetteer can be drawn." : "The gazetteer cannot be drawn:");
    for (const auto& reason : reasons) std::printf("  %s\n", reason.c_str());
    return 0;
}

}  // namespace app
