#include "app/window/ElementPages.h"

#include "app/document/Errors.h"
#include "desk/components/Registrar.h"

namespace app {
namespace {

void Tell(host::IHost& host, const std::string& text) {
    host.Dialogs().MessageBox({"Property Pages", text, host::kWarningOk, nullptr});
}

}  // namespace

host::Ref<host::IComPropertyPage> ElementPages::MakeOne(const host::Ref<host::IHost>& host,
                                                        const std::string& file,
                                                        const std::string& classId) {
    auto& library = libraries_[file];
    if (!library) library = std::make_shared<desk::ComponentLibrary>(file);
    auto page = host::As<host::IComPropertyPage>(library->CreateInstance(classId, host));
    if (page) return page;
    throw CommandError("The class \"" + classId + "\" of the component library \"" + file +
                       "\" is no property page.");
}

std::vector<host::Ref<host::IComPropertyPage>> ElementPages::Make(
    const host::Ref<host::IHost>& host) {
    std::vector<host::Ref<host::IComPropertyPage>> pages;
    std::vector<desk::ComponentEntry> entries;
    try {
        const auto registrar = host::As<desk::Registrar>(host->NewComponentRegistrar());
        entries = registrar->Entries(host::kElementPropertyPages);
    } catch (const std::exception&) {
        Tell(*host, CurrentSentence());
    }
    for (const auto& entry : entries) {
        try {
            pages.push_back(MakeOne(host, entry.file, entry.classId));
        } catch (const std::exception&) {
            Tell(*host, CurrentSentence());
        }
    }
    return pages;
}

}  // namespace app
