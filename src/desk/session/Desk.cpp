#include "desk/session/Desk.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "desk/components/Registrar.h"
#include "desk/locale/IcuLocale.h"
#include "desk/mapbook/SeriesManager.h"
#include "desk/objects/Geometry.h"
#include "desk/tables/TablePath.h"
#include "desk/tables/TableSort.h"
#include "desk/tables/TableWorkspace.h"
#include "host/Failure.h"

namespace desk {

namespace {

// The only filter: dBase tables.
class TableFilter final : public host::IHostObjectFilter {};

template <class T>
host::Ref<T> FromWindow(const std::function<host::Ref<T>()>& make) {
    if (make) return make();
    throw host::Failure(host::kFailureUnspecified, "desk::Desk",
                        "There is no window in which a dialog could be shown.");
}

std::shared_ptr<IcuLocale> LocaleOf(const Document& document, const std::string& path) {
    try {
        return std::make_shared<IcuLocale>(document.locale);
    } catch (host::Failure& failure) {
        failure.AddFact("file", path);
        throw;
    }
}

}  // namespace

Desk::Desk(DeskOptions options)
    : ObjectFactory(std::make_shared<TextEngine>()),
      givenLocale_(options.locale),
      locale_(std::make_shared<IcuLocale>(options.locale)),
      dialogs_(std::move(options.dialogs)),
      expressionEditor_(std::move(options.expressionEditor)),
      window_(std::move(options.window)),
      sorting_(options.listeners.sorting),
      application_(
          MakeApplication({std::make_shared<const SessionListeners>(std::move(options.listeners)),
                           commands_, window_.windowHandle})) {
    if (!dialogs_) {
        throw host::Failure(host::kFailureTypeMismatch, "desk::Desk",
                            "A desk cannot work without dialogs.");
    }
}

void Desk::Open(const std::string& path) {
    FileState file;
    Start(ReadDocument(path, Text(), &file), path);
    SetReplaceable(file);
}

void Desk::Start(Document document, const std::string& path) {
    if (givenLocale_.empty())
        locale_ = LocaleOf(document, path);
    else
        document.locale = LocaleName();
    document_ = std::move(document);
    path_ = path;
    SetReplaceable(std::nullopt);
    book_ = std::make_shared<BookSource>(MapBookPath(document_, path_));
}

void Desk::Save() {
    SetReplaceable(WriteDocument(document_, path_, replaceable_));
}

host::IHostLocale& Desk::Locale() {
    return *locale_;
}

std::string Desk::LanguageTag() const {
    return locale_->LanguageTag();
}

bool Desk::UsesLetterFormat() const {
    return locale_->UsesLetterFormat();
}

std::string Desk::LocaleName() const {
    const std::string name = locale_->Name();
    return name.empty() ? "C" : name;
}

std::string Desk::DocumentFolder() const {
    const std::string folder = std::filesystem::path(path_).parent_path();
    return folder.empty() ? "." : folder;
}

host::Ref<host::IHostWorkspaceFactory> Desk::NewWorkspaceFactory() {
    return std::make_shared<TableWorkspaceFactory>(DocumentFolder());
}

host::Ref<host::IHostTableSort> Desk::NewTableSort() {
    return std::make_shared<TableSort>(sorting_);
}

host::Ref<host::IHostDisplayTransformation> Desk::NewDisplayTransformation() {
    return std::make_shared<DisplayTransformation>();
}

host::Ref<host::IHostObjectDialog> Desk::NewObjectDialog() {
    return FromWindow(window_.newObjectDialog);
}

host::Ref<host::IHostObjectFilter> Desk::NewTableFilter() {
    return std::make_shared<TableFilter>();
}

host::Ref<host::IHostSymbolDialog> Desk::NewSymbolDialog() {
    return FromWindow(window_.newSymbolDialog);
}

host::Ref<host::CVNLayoutContext> Desk::NewLayoutContext() {
    return std::make_shared<LayoutContext>(book_, document_.templateKey);
}

host::Ref<host::CVNMapBook> Desk::NewMapBook() {
    return std::make_shared<MapBook>(book_);
}

host::Ref<host::MapSeriesManager> Desk::NewMapSeriesManager() {
    return std::make_shared<SeriesManager>(OpenTableFile);
}

host::Ref<host::CVNExpressionEngine> Desk::NewExpressionEngine() {
    return std::make_shared<ExpressionEngine>(locale_, expressionEditor_);
}

bool Desk::FileExists(const std::string& path) {
    return FindTable(path, DocumentFolder()).Exists();
}

std::string Desk::TableFile(const std::string& path) const {
    return FindTable(path, DocumentFolder()).File();
}

std::vector<std::string> Desk::IndexLayerFiles() const try {
    std::vector<std::string> files;
    if (const auto book = book_->File())
        for (const auto& layer : book->indexLayers) files.push_back(FindTable(layer).File());
    return files;
} catch (const host::Failure&) {
    return {};
}

host::Ref<host::IHostPixelSurface> Desk::NewPixelSurface(std::int32_t width, std::int32_t height,
                                                         double dotsPerInch) {
    return std::make_shared<PixelSurface>(width, height, dotsPerInch);
}

host::Ref<host::IHostComponentRegistrar> Desk::NewComponentRegistrar() {
    return std::make_shared<Registrar>(ComponentsFile());
}

}  // namespace desk
