#include "app/window/ElementPages.h"

#include "app/document/Errors.h"
#include "app/document/OwnComponent.h"
#include "desk/components/Registrar.h"

namespace app {

ElementPages::Page ElementPages::MakeOne(const host::Ref<host::IHost>& host,
                                         const std::string& file, const std::string& classId) {
    auto& library = libraries_[file];
    if (!library) library = std::make_shared<desk::ComponentLibrary>(file);
    auto page = host::As<host::IComPropertyPage>(library->CreateInstance(classId, host));
    if (page) return page;
    throw CommandError("The class \"" + classId + "\" of the component library \"" + file +
                       "\" is no property page.");
}

std::vector<ElementPages::Page> ElementPages::Make(WindowSession& session) {
    const auto& host = session.Document().DeskRef();
    const auto orWarn = [&](const auto& act) {
        try {
            act();
        } catch (const std::exception&) {
            session.Warn("Property Pages", CurrentSentence());
        }
    };
    std::vector<Page> pages;
    orWarn([&] { RegisterNewComponent(host); });
    orWarn([&] {
        const auto registrar = host::As<desk::Registrar>(host->NewComponentRegistrar());
        for (const auto& entry : registrar->Entries(host::kElementPropertyPages))
            orWarn([&] { pages.push_back(MakeOne(host, entry.file, entry.classId)); });
    });
    return pages;
}

}  // namespace app
