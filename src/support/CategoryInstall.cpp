#include "support/CategoryInstall.h"

#include <utility>

#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

// In the order of their tabs.
constexpr const char* kPropertyPageClasses[] = {"CVNGazetteer.GazetteerPropertyPage",
                                                "CVNGazetteer.TypesettingPropertyPage"};

}  // namespace

CategoryIDs::CategoryIDs(host::Ref<host::IHost> host) : host_(std::move(host)) {}

host::Ref<host::IHostIdentifier> CategoryIDs::MakeUID(const std::string& text) {
    auto identifier = host_->NewIdentifier();
    identifier->SetValue(text);
    return identifier;
}

host::Ref<host::IHostIdentifier> CategoryIDs::ElementPropertyPages() {
    return MakeUID(host::kElementPropertyPages);
}

CategoryInstall::CategoryInstall(host::Ref<host::IHost> host, std::string folder,
                                 std::string baseName)
    : host_(std::move(host)), folder_(std::move(folder)), baseName_(std::move(baseName)) {}

std::int32_t CategoryInstall::Install(bool install, const std::string& /*customOptions*/) try {
    errorMessage_.clear();
    Enter(install);
    return 0;
} catch (...) {
    const host::Failure failure = CurrentFailure();
    errorMessage_ = failure.description;
    return failure.number;
}

void CategoryInstall::Enter(bool install) {
    // The host maps names of this form to those of its platform.
    const std::string file = folder_ + '\\' + baseName_ + ".dll";
    const auto registrar = host_->NewComponentRegistrar();
    CategoryIDs categories(host_);
    for (const char* const page : kPropertyPageClasses)
        registrar->RegisterComponent(file, categories.MakeUID(page),
                                     categories.ElementPropertyPages(), install);
}

}  // namespace gazetteer
