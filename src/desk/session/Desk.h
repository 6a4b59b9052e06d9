#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desk/devices/Devices.h"
#include "desk/documents/Document.h"
#include "desk/expressions/ExpressionEngine.h"
#include "desk/mapbook/MapBook.h"
#include "desk/objects/ObjectFactory.h"
#include "desk/session/Application.h"
#include "desk/tables/TableFactory.h"
#include "desk/text/TextEngine.h"
#include "host/Host.h"

namespace desk {

/// What only a host with a window has. Any of them may be missing; asking for it then fails.
struct WindowServices {
    std::function<host::Ref<host::IHostObjectDialog>()> newObjectDialog;
    std::function<host::Ref<host::IHostSymbolDialog>()> newSymbolDialog;
    std::function<host::WindowHandle()> windowHandle;
};

struct DeskOptions {
    std::string locale;                     ///< As IcuLocale takes it; empty: the user's.
    host::Ref<host::IHostDialogs> dialogs;  ///< Must be there.
    SessionListeners listeners;
    ExpressionEngine::Editor expressionEditor;  ///< None: expressions cannot be edited.
    WindowServices window;
    TextEngine::Ways textSizes = TextEngine::Ways::Quick;
};

/// The running host: makes every object of the desk and holds the one document that it works on.
/// Used by one thread.
class Desk final : public host::IHost, public ObjectFactory, public TableFactory {
public:
    /// Starts with an empty document. Fails for a locale that is not known.
    explicit Desk(DeskOptions options);

    /// Reads a document and works on it from here on. Its map book is read when first asked for.
    void Open(const std::string& path);
    /// Works on a document that is not on disk yet; its paths are seen from where the file of that
    /// path will stand.
    void Start(Document document, const std::string& path);
    /// What the next Save may replace; nothing: whatever stands at the path. That of a document
    /// read or saved is its file as it was then, that of one started anew nothing.
    void SetReplaceable(const std::optional<FileState>& file) { replaceable_ = file; }
    const std::optional<FileState>& Replaceable() const { return replaceable_; }
    /// Writes the document to its path. Fails, with nothing written, where others have changed the
    /// file since it was read or saved.
    void Save();

    Document& CurrentDocument() { return document_; }
    const std::string& DocumentPath() const { return path_; }
    const std::shared_ptr<TextEngine>& Text() const { return Engine(); }
    /// The commands that others find by name.
    CommandTable& Commands() { return *commands_; }

    host::Ref<host::IHostApplication> NewApplication() override { return application_; }
    host::Ref<host::IHostComponentRegistrar> NewComponentRegistrar() override;
    host::Ref<host::IHostDisplayTransformation> NewDisplayTransformation() override;
    host::Ref<host::IHostPixelSurface> NewPixelSurface(std::int32_t width, std::int32_t height,
                                                       double dotsPerInch) override;
    host::Ref<host::IHostObjectDialog> NewObjectDialog() override;
    host::Ref<host::IHostObjectFilter> NewTableFilter() override;
    host::Ref<host::IHostSymbolDialog> NewSymbolDialog() override;

    // These speak of the map book of the document that is being worked on when they are made.

    host::Ref<host::CVNLayoutContext> NewLayoutContext() override;
    host::Ref<host::CVNMapBook> NewMapBook() override;
    host::Ref<host::MapSeriesManager> NewMapSeriesManager() override;
    host::Ref<host::CVNExpressionEngine> NewExpressionEngine() override;

    host::IHostLocale& Locale() override { return *locale_; }
    host::IHostDialogs& Dialogs() override { return *dialogs_; }
    host::IHostDevices& Devices() override { return *devices_; }
    /// Either separator, and another case of the ending, as for tables. False for folders.
    bool FileExists(const std::string& path) override;

private:
    host::Ref<host::IHostLocale> locale_;
    host::Ref<host::IHostDialogs> dialogs_;
    ExpressionEngine::Editor expressionEditor_;
    host::Ref<host::IHostDevices> devices_ = std::make_shared<desk::Devices>();
    WindowServices window_;
    std::shared_ptr<CommandTable> commands_ = std::make_shared<CommandTable>();
    host::Ref<host::IHostApplication> application_;
    Document document_;
    std::string path_;
    std::optional<FileState> replaceable_;
    std::shared_ptr<BookSource> book_ = std::make_shared<BookSource>("");
};

}  // namespace desk
