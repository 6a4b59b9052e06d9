#include <cstdio>
#include <nlohmann/json.hpp>

#include "app/commands/Commands.h"
#include "app/commands/ElementTree.h"
#include "app/commands/Session.h"
#include "app/work/Errors.h"
#include "app/work/FilePaths.h"
#include "app/work/Sheets.h"

namespace app {

int Draw(const CommonOptions& common, const DrawOptions& options) {
    if (!options.output.empty()) CheckOutputName(options.output);
    CheckApart(options.output, {options.document});
    Session session(common);
    session.Open(options.document);
    session.BindDrawable();
    session.CheckHasPages();
    CheckPage(options.page, session.PageCount());
    session.Manager().SetIndexToPageNumber(options.page);
    session.CheckNothingFailed();
    LabelSheet(session, options.page);

    if (!options.output.empty()) WriteDrawnPage(session, options.output, options.page);
    if (options.json) {
        const auto& element = session.Gazetteer();
        const nlohmann::ordered_json json = {
            {"page", options.page},
            {"pageCount", session.PageCount()},
            {"draft", host::As<host::IHostFrameElement>(element)->Draft()},
            {"frame", BoxJson(*element->Geometry()->Bounds())},
            {"members", ElementTree(session.Host(), *element)}};
        std::puts(json.dump(1).c_str());
    }
    if (options.output.empty() && !options.json) session.Save();
    return kDone;
}

}  // namespace app
