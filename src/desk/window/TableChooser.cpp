#include "desk/window/TableChooser.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include "desk/tables/TablePath.h"
#include "desk/window/DialogParent.h"
#include "desk/window/FolderList.h"
#include "desk/window/PlacesPanel.h"
#include "desk/window/TablePreview.h"
#include "desk/window/WidgetText.h"
#include "host/Failure.h"

namespace desk {

namespace {

constexpr char kDbfTable[] = "dBASE Table";
constexpr char kTable[] = "Table";
constexpr char kFolder[] = "Folder";
constexpr char kConnection[] = "Folder Connection";

/// Milliseconds before the table of a new selection is read, so that scrolling through the list
/// with the keyboard stays fast.
constexpr int kPreviewDelay = 120;

/// Initial size in characters and lines.
constexpr int kColumns = 130;
constexpr int kLines = 30;

QStringList FileNames(const QStringList& paths) {
    QStringList names;
    for (const QString& path : paths) names << QFileInfo(path).fileName();
    return names;
}

}  // namespace

TableChooser::TableChooser(const QString& startFolder, bool allowMultiSelect, QWidget* parent)
    : QDialog(parent),
      address_(new QLineEdit(this)),
      up_(new QToolButton(this)),
      places_(new PlacesPanel(startFolder,
                              {[this](const QString& path) { Enter(path); },
                               [this] {
                                   if (folder_.isEmpty()) Enter({});
                               }},
                              this)),
      list_(new FolderList(this)),
      preview_(new TablePreview(this)),
      name_(new QLineEdit(this)),
      note_(new QLabel(this)),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
    list_->setSelectionMode(allowMultiSelect ? QAbstractItemView::ExtendedSelection
                                             : QAbstractItemView::SingleSelection);
    previewTimer_.setSingleShot(true);
    previewTimer_.setInterval(kPreviewDelay);
    LayOut();
    ConnectSignals();
    Enter(QFileInfo(startFolder).isDir() ? startFolder : QDir::homePath());
    list_->setFocus();
}

void TableChooser::LayOut() {
    auto* splitter = new QSplitter(this);
    splitter->addWidget(places_);
    splitter->addWidget(list_);
    splitter->addWidget(preview_);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(1, 1);
    const int width = fontMetrics().averageCharWidth();
    list_->setMinimumWidth(width * 28);
    preview_->setMinimumWidth(width * 20);
    splitter->setSizes({width * 24, width * 70, width * 30});
    note_->setObjectName("note");
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(AddressRow());
    layout->addWidget(splitter, 1);
    layout->addWidget(NameRow());
    layout->addWidget(note_);
    layout->addWidget(buttons_);
    ResizeToScreen(*this, {width * kColumns, fontMetrics().lineSpacing() * kLines});
}

QWidget* TableChooser::AddressRow() {
    auto* row = new QWidget(this);
    auto* label = new QLabel("&Look in:", row);
    label->setBuddy(address_);
    address_->setObjectName("address");
    up_->setObjectName("up");
    up_->setIcon(style()->standardIcon(QStyle::SP_FileDialogToParent, nullptr, this));
    up_->setToolTip("Up One Folder (Alt+Up)");
    up_->setAccessibleName("Up One Folder");
    up_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
    up_->setAutoRaise(true);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(address_, 1);
    layout->addWidget(up_);
    return row;
}

QWidget* TableChooser::NameRow() {
    auto* row = new QWidget(this);
    auto* label = new QLabel("&Name:", row);
    label->setBuddy(name_);
    list_->setObjectName("list");
    name_->setObjectName("name");
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(name_, 1);
    return row;
}

void TableChooser::ConnectSignals() {
    // The default tab order is the order of construction.
    const QList<QWidget*> order =
        QList<QWidget*>{address_, up_} + places_->TabOrder() + QList<QWidget*>{list_, name_};
    for (qsizetype i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
    connect(up_, &QToolButton::clicked, this, &TableChooser::GoUp);
    connect(list_, &QTreeWidget::itemActivated, this, &TableChooser::Activate);
    connect(list_, &QTreeWidget::itemSelectionChanged, this, &TableChooser::ShowSelection);
    connect(name_, &QLineEdit::textChanged, this, [this] {
        previewTimer_.start();
        UpdateButtons();
    });
    connect(&previewTimer_, &QTimer::timeout, this, &TableChooser::ShowPreview);
    connect(address_, &QLineEdit::returnPressed, this, &TableChooser::GoToAddress);
    // In these fields Return navigates and must not also press OK.
    connect(buttons_, &QDialogButtonBox::accepted, this, [this] {
        if (!address_->hasFocus() && !places_->TakesReturn()) AcceptName();
    });
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void TableChooser::Enter(const QString& folder) {
    const QString clean = folder.isEmpty() ? QString() : QDir::cleanPath(folder);
    if (!ShowContents(clean)) return;
    folder_ = clean;
    places_->SetFolder(IsContainer(FromQt(clean)) ? QFileInfo(clean).path() : clean);
    address_->setText(clean.isEmpty() ? QString(kAllPlaces) : clean);
    note_->clear();
    if (list_->topLevelItemCount() > 0)
        list_->setCurrentItem(list_->topLevelItem(0), 0, QItemSelectionModel::NoUpdate);
    ShowSelection();
}

bool TableChooser::ShowContents(const QString& folder) {
    if (folder.isEmpty()) {
        list_->ShowPlaces(places_->Places());
    } else if (IsContainer(FromQt(folder))) {
        try {
            list_->ShowLayers(folder);
        } catch (const host::Failure& failure) {
            ShowNote(ToQt(failure.cause));
            return false;
        }
    } else if (!list_->ShowFolder(folder)) {
        ShowNote(QFileInfo(folder).isDir() ? "The folder " + folder + " cannot be read."
                                           : "There is no folder " + folder + ".");
        return false;
    }
    return true;
}

void TableChooser::GoUp() {
    if (folder_.isEmpty()) return;
    const QString before = folder_;
    QDir dir(folder_);
    Enter(dir.cdUp() ? dir.path() : QString());
    list_->Select(before);
    list_->setFocus();
}

void TableChooser::Activate(const QTreeWidgetItem* item) {
    if (FolderList::KindOf(item) != FolderList::Kind::Table) return Enter(FolderList::PathOf(item));
    const QStringList selected = list_->SelectedTables();
    AcceptTables(selected.isEmpty() ? QStringList(FolderList::PathOf(item)) : selected);
}

void TableChooser::GoToAddress() {
    const QString text = address_->text().trimmed();
    if (text.isEmpty() || text == kAllPlaces)
        Enter({});
    else if (!FollowPath(text))
        ShowNote("There is no folder " + text + ".");
}

void TableChooser::ShowSelection() {
    const QStringList tables = list_->SelectedTables();
    // Keeps a typed name while the user looks for a folder.
    if (!tables.isEmpty()) name_->setText(FileNames(tables).join("; "));
    previewTimer_.start();
    UpdateButtons();
}

void TableChooser::ShowPreview() {
    const QString typed = name_->text().trimmed();
    const QString table = list_->TableNamed(typed);
    const QStringList selected = list_->SelectedTables();
    if (!table.isEmpty())
        preview_->ShowTable(table);
    else if (selected.size() > 1)
        preview_->ShowText(locale().toString(selected.size()) + " tables are selected.");
    else if (!typed.isEmpty() && !folder_.isEmpty() && !typed.contains('/'))
        preview_->ShowText("There is no table named " + typed + " here.");
    else if (FolderList::KindOf(list_->SelectedFolder()) == FolderList::Kind::Container)
        preview_->ShowText("Open " + list_->SelectedFolder()->text(0) + " to see its layers.");
    else
        preview_->ShowText("Select a table to see its fields.");
}

void TableChooser::UpdateButtons() {
    up_->setEnabled(!folder_.isEmpty());
    buttons_->button(QDialogButtonBox::Ok)
        ->setEnabled(!name_->text().trimmed().isEmpty() || list_->SelectedFolder() != nullptr);
}

void TableChooser::AcceptName() {
    const QString name = name_->text().trimmed();
    const QStringList selected = list_->SelectedTables();
    if (!selected.isEmpty() && name == FileNames(selected).join("; ")) {
        AcceptTables(selected);
    } else if (name.isEmpty()) {
        if (const auto* folder = list_->SelectedFolder()) Enter(FolderList::PathOf(folder));
    } else if (name.contains('/') || name == "~" || name == "..") {
        if (!FollowPath(name)) ShowNote("There is no folder " + QFileInfo(name).path() + ".");
    } else {
        AcceptTypedName(name);
    }
}

bool TableChooser::FollowPath(const QString& path) {
    QString full = path;
    if (full == "~" || full.startsWith("~/")) full = QDir::homePath() + full.mid(1);
    full = QDir::cleanPath(QDir(folder_).absoluteFilePath(full));
    const QFileInfo info(full);
    const bool opens = info.isDir() || IsContainer(FromQt(full));
    if (!opens && !QFileInfo(info.path()).isDir() && !IsContainer(FromQt(info.path())))
        return false;
    Enter(opens ? full : info.path());
    name_->setText(opens ? QString() : info.fileName());
    if (!opens) list_->Select(list_->TableNamed(info.fileName()));
    name_->setFocus();
    UpdateButtons();
    return true;
}

void TableChooser::AcceptTables(const QStringList& paths) {
    if (paths.isEmpty()) return;
    picked_.clear();
    for (const QString& path : paths)
        picked_.push_back({FromQt(QDir::toNativeSeparators(path)),
                           path.endsWith(".dbf", Qt::CaseInsensitive) ? kDbfTable : kTable});
    pickedName_ = QFileInfo(paths.front()).fileName();
    accept();
}

void TableChooser::AcceptTypedName(const QString& name) {
    const QString table = list_->TableNamed(name);
    if (!table.isEmpty()) return AcceptTables({table});
    if (IsContainer(FromQt(folder_))) return ShowNote(folder_ + " has no layer " + name + ".");
    const auto* connection = list_->SelectedFolder();
    if (!folder_.isEmpty() && IsContainer(FromQt(folder_ + '/' + name)))
        return Enter(folder_ + '/' + name);
    if (folder_.isEmpty() && connection == nullptr)
        return ShowNote("Select the folder connection in which " + name + " is to be.");
    const QString folder = folder_.isEmpty() ? FolderList::PathOf(connection) : folder_;
    picked_ = {
        {FromQt(QDir::toNativeSeparators(folder)), folder_.isEmpty() ? kConnection : kFolder}};
    pickedName_ = name;
    accept();
}

void TableChooser::ShowNote(const QString& text) {
    note_->setText(text);
    QApplication::beep();
}

}  // namespace desk
