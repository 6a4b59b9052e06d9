#include "desk/session/Desk.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "desk/components/Registrar.h"
#include "desk/devices/PixelSurface.h"
#include "desk/locale/IcuLocale.h"
#include "desk/mapbook/SeriesManager.h"
#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/PropertySet.h"
#include "desk/objects/Symbols.h"
#include "desk/objects/Transformation.h"
#include "desk/tables/DbfWorkspace.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/Scratch.h"
#include "desk/tables/TableSort.h"
#include "host/Failure.h"

namespace desk {

namespace {

host::Ref<host::IHostTable> OpenTableFile(const std::string& path) {
    return DbfWorkspaceFactory().OpenFromFile("", 0)->OpenTable(path);
}

// The desk's one filter: dBase tables.
class TableFilter final : public host::IHostObjectFilter {};

template <class T>
host::Ref<T> FromWindow(const std::function<host::Ref<T>()>& make) {
    if (make) return make();
    throw host::Failure(host::kFailureUnspecified, "desk::Desk",
                        "There is no window in which a dialog could be shown.");
}

}  // namespace

Desk::Desk(DeskOptions options)
    : locale_(std::make_shared<IcuLocale>(options.locale)),
      dialogs_(std::move(options.dialogs)),
      expressionEditor_(std::move(options.expressionEditor)),
      engine_(std::make_shared<TextEngine>(options.textSizes)),
      window_(std::move(options.window)),
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
    Start(ReadDocument(path, engine_, &file), path);
    MayReplace(file);
}

void Desk::Start(Document document, const std::string& path) {
    document_ = std::move(document);
    path_ = path;
    MayReplace(std::nullopt);
    book_ = std::make_shared<BookSource>(MapBookPath(document_, path_));
}

void Desk::Save() {
    MayReplace(WriteDocument(document_, path_, replaceable_));
}

host::Ref<host::IHostPropertySet> Desk::NewPropertySet() {
    return std::make_shared<PropertySet>();
}

host::Ref<host::IHostObjectCopy> Desk::NewObjectCopy() {
    return std::make_shared<ObjectCopy>();
}

host::Ref<host::IHostPoint> Desk::NewPoint() {
    return std::make_shared<Point>();
}

host::Ref<host::IHostEnvelope> Desk::NewEnvelope() {
    return std::make_shared<Envelope>();
}

host::Ref<host::IHostLine> Desk::NewLine() {
    return std::make_shared<Line>();
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

host::Ref<host::IHostFont> Desk::NewFont() {
    return std::make_shared<Font>();
}

host::Ref<host::IHostColor> Desk::NewColor() {
    return std::make_shared<Color>();
}

host::Ref<host::IHostTextSymbol> Desk::NewTextSymbol() {
    return std::make_shared<TextSymbol>(engine_);
}

host::Ref<host::IHostFillSymbol> Desk::NewFillSymbol() {
    return std::make_shared<FillSymbol>();
}

host::Ref<host::IHostLineSymbol> Desk::NewLineSymbol() {
    return std::make_shared<LineSymbol>();
}

host::Ref<host::IHostGroupElement> Desk::NewGroupElement() {
    return std::make_shared<GroupElement>();
}

host::Ref<host::IHostTextElement> Desk::NewTextElement() {
    return std::make_shared<TextElement>(engine_);
}

host::Ref<host::IHostFilledElement> Desk::NewRectangleElement() {
    return std::make_shared<RectangleElement>();
}

host::Ref<host::IHostScratchWorkspaceFactory> Desk::NewScratchWorkspaceFactory() {
    return std::make_shared<ScratchWorkspaceFactory>();
}

host::Ref<host::IHostWorkspaceFactory> Desk::NewWorkspaceFactory() {
    return std::make_shared<DbfWorkspaceFactory>();
}

host::Ref<host::IHostFields> Desk::NewFields() {
    return std::make_shared<Fields>();
}

host::Ref<host::IHostField> Desk::NewField() {
    return std::make_shared<Field>();
}

host::Ref<host::IHostQueryFilter> Desk::NewQueryFilter() {
    return std::make_shared<QueryFilter>();
}

host::Ref<host::IHostIdentifier> Desk::NewIdentifier() {
    return std::make_shared<Identifier>();
}

host::Ref<host::IHostTableSort> Desk::NewTableSort() {
    return std::make_shared<TableSort>();
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
    std::error_code error;
    const auto status = std::filesystem::status(ResolveTablePath(path), error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

host::Ref<host::IHostPixelSurface> Desk::NewPixelSurface(std::int32_t width, std::int32_t height,
                                                         double dotsPerInch) {
    return std::make_shared<PixelSurface>(width, height, dotsPerInch);
}

host::Ref<host::IHostComponentRegistrar> Desk::NewComponentRegistrar() {
    return std::make_shared<Registrar>(ComponentsFile());
}

}  // namespace desk
