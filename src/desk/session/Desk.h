#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desk/devices/Devices.h"
#include "desk/documents/Document.h"
#include "desk/expressions/ExpressionEngine.h"
#include "desk/mapbook/MapBook.h"
#include "desk/objects/ObjectFactory.h"
#include "desk/session/Application.h"
#include "desk/tables/SortRows.h"
#include "desk/tables/TableFactory.h"
#include "desk/text/TextEngine.h"
#include "host/Host.h"

namespace desk {

class IcuLocale;

/// Functions of a host with a window. Each may be empty; the requests that need it then throw.
struct WindowServices {
    std::function<host::Ref<host::IHostObjectDialog>()> newObjectDialog;
    std::function<host::Ref<host::IHostSymbolDialog>()> newSymbolDialog;
    std::function<host::WindowHandle()> windowHandle;
};

struct DeskOptions {
    std::string locale;  ///< As for IcuLocale; empty: that of the document, or else the user's.
    host::Ref<host::IHostDialogs> dialogs;  ///< Required.
    SessionListeners listeners;
    ExpressionEngine::Editor expressionEditor;  ///< Empty: expressions cannot be edited.
    WindowServices window;
};

/// The desk's host: creates all objects and holds the current document. Must be used by one thread.
class Desk final : public host::IHost, public ObjectFactory, public TableFactory {
public:
    /// Starts with an empty document. Throws for an unknown locale.
    explicit Desk(DeskOptions options);

    /// Reads a document and makes it the current one. Its map book is read on first use.
    void Open(const std::string& path);
    /// Makes a document that is not on disk yet the current one. Its relative paths are resolved
    /// from the folder of the given path. From now on its locale is in use or, where the options
    /// have one, it is given that. Throws and changes nothing if there is no such locale.
    void Start(Document document, const std::string& path);
    /// The state of the file that the next Save may replace; nothing: any file. Open and Save set
    /// it to the state on disk, Start clears it.
    void SetReplaceable(const std::optional<FileState>& file) { replaceable_ = file; }
    const std::optional<FileState>& Replaceable() const { return replaceable_; }
    /// Writes the document to its path. Throws and writes nothing if another program has changed
    /// the file since it was read or saved.
    void Save();

    Document& CurrentDocument() { return document_; }
    const std::string& DocumentPath() const { return path_; }
    const std::shared_ptr<TextEngine>& Text() const { return Engine(); }
    CommandTable& Commands() { return *commands_; }

    host::Ref<host::IHostApplication> NewApplication() override { return application_; }
    host::Ref<host::IHostComponentRegistrar> NewComponentRegistrar() override;
    host::Ref<host::IHostDisplayTransformation> NewDisplayTransformation() override;
    host::Ref<host::IHostPixelSurface> NewPixelSurface(std::int32_t width, std::int32_t height,
                                                       double dotsPerInch) override;
    host::Ref<host::IHostObjectDialog> NewObjectDialog() override;
    host::Ref<host::IHostObjectFilter> NewTableFilter() override;
    host::Ref<host::IHostSymbolDialog> NewSymbolDialog() override;

    // The following use the map book of the document that is current when they are created.

    host::Ref<host::CVNLayoutContext> NewLayoutContext() override;
    host::Ref<host::CVNMapBook> NewMapBook() override;
    host::Ref<host::MapSeriesManager> NewMapSeriesManager() override;
    host::Ref<host::CVNExpressionEngine> NewExpressionEngine() override;

    host::IHostLocale& Locale() override;
    /// Name of the locale in use, as documents keep it.
    std::string LocaleName() const;
    bool UsesLetterFormat() const;
    std::string LanguageTag() const;
    host::IHostDialogs& Dialogs() override { return *dialogs_; }
    host::IHostDevices& Devices() override { return *devices_; }
    /// Tables that are not where a path says are looked for beside the document, so that both can
    /// be moved together.
    host::Ref<host::IHostWorkspaceFactory> NewWorkspaceFactory() override;
    host::Ref<host::IHostTableSort> NewTableSort() override;
    /// Accepts all paths of tables. False for folders.
    bool FileExists(const std::string& path) override;
    /// The file that a path of a table means, as FileExists and the workspaces find it; empty if
    /// the table is in none, but on a server.
    std::string TableFile(const std::string& path) const;
    /// The tables of the map book's index layers; none without a map book that can be read.
    std::vector<std::string> IndexLayerFiles() const;

private:
    std::string DocumentFolder() const;

    std::string givenLocale_;  ///< Of the options.
    std::shared_ptr<IcuLocale> locale_;
    host::Ref<host::IHostDialogs> dialogs_;
    ExpressionEngine::Editor expressionEditor_;
    host::Ref<host::IHostDevices> devices_ = std::make_shared<desk::Devices>();
    WindowServices window_;
    SortListener sorting_;
    std::shared_ptr<CommandTable> commands_ = std::make_shared<CommandTable>();
    host::Ref<host::IHostApplication> application_;
    Document document_;
    std::string path_;
    std::optional<FileState> replaceable_;
    std::shared_ptr<BookSource> book_ = std::make_shared<BookSource>("");
};

}  // namespace desk
