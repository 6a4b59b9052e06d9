#include "app/window/layers/LocateChoices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QSignalBlocker>
#include <algorithm>

#include "app/window/PathField.h"
#include "app/window/layers/Disclosure.h"
#include "app/window/layers/FeatureRow.h"
#include "app/window/layers/LayerField.h"
#include "app/window/layers/Rows.h"
#include "app/window/layers/SquareChoices.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr double kMostDistance = 1e9;
constexpr int kDistanceDecimals = 6;  // For degrees.

/// A distance without the zeros behind its decimals.
class DistanceBox : public QDoubleSpinBox {
public:
    explicit DistanceBox(QWidget* parent) : QDoubleSpinBox(parent) {
        QLocale plain;
        plain.setNumberOptions(QLocale::OmitGroupSeparator);
        setLocale(plain);
        setObjectName("distance");
        setDecimals(kDistanceDecimals);
        setRange(0, kMostDistance);
        setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
        setSpecialValueText("no distance");
        setSuffix(" map units");
        setToolTip(
            "Parts of one name that lie farther from each other are listings of their own, in the "
            "unit of the sheets' reference system");
    }
    QString textFromValue(double value) const override {
        return locale().toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

PathField::Chooser FileToWrite(QWidget* parent, const char* title, const char* filter) {
    return [=](const QString& present) {
        return QFileDialog::getSaveFileName(parent, title, present, filter, nullptr,
                                            QFileDialog::DontConfirmOverwrite);
    };
}

}  // namespace

LocateChoices::LocateChoices(QWidget* parent)
    : QWidget(parent),
      featureRows_(new QVBoxLayout(new QWidget(this))),
      sheets_(new LayerField("sheets", {{"Page:", {"page", "sheet", "number"}}}, "sheet", this)),
      squares_(new SquareChoices(this)),
      apart_(new QComboBox(this)),
      table_(new PathField(
          "located", FileToWrite(this, "Listing Table", "Tables (*.dbf *.gpkg *.csv)"), this)),
      more_(new Disclosure("moreChoices", "M&ore", this)),
      distance_(new DistanceBox(this)),
      initial_(new QCheckBox("A&dd a field with the index letter", this)),
      book_(new PathField("writtenBook", FileToWrite(this, "Write Map Book", "Map books (*.json)"),
                          this)) {
    featureRows_->setContentsMargins(0, 0, 0, 0);
    apart_->setObjectName("apart");
    initial_->setObjectName("initial");
    book_->setToolTip("The document is linked to it: it follows when pages change there");
    AddFeatures();
    LayOut();
    Connect();
    TakeChange();
}

void LocateChoices::LayOut() {
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow("&Features:", featureRows_->parentWidget());
    static_cast<QLabel*>(form->labelForField(featureRows_->parentWidget()))
        ->setBuddy(&features_.front()->Layer());
    form->addRow("&Sheets:", sheets_);
    squares_->AddTo(*form);
    form->addRow("Tell &apart by:", apart_);
    form->addRow("Listing ta&ble:", table_);
    form->addRow(more_);
    squares_->AddMoreTo(*form, *more_);
    AddMore(*form, *more_, "Tell apart beyond:", distance_);
    AddMore(*form, *more_, {}, initial_);
    AddMore(*form, *more_, "Write map boo&k:", book_);
}

void LocateChoices::Connect() {
    connect(sheets_, &LayerField::Changed, this, &LocateChoices::TakeChange);
    connect(squares_, &SquareChoices::Changed, this, &LocateChoices::TakeChange);
    connect(apart_, &QComboBox::currentIndexChanged, this, &LocateChoices::TakeChange);
    connect(distance_, &QDoubleSpinBox::valueChanged, this, &LocateChoices::TakeChange);
    connect(initial_, &QCheckBox::toggled, this, &LocateChoices::TakeChange);
    connect(book_, &PathField::Changed, this, &LocateChoices::TakeChange);
    connect(table_, &PathField::Changed, this, [this] {
        tableChosen_ = table_->Path() != ProposedTable();
        Q_EMIT OutputChanged();
    });
}

// There is always one row more than layers.
void LocateChoices::AddFeatures() {
    auto* row = new FeatureRow("features" + QString::number(features_.size() + 1),
                               featureRows_->parentWidget());
    features_.push_back(row);
    featureRows_->addWidget(row);
    connect(row, &FeatureRow::Changed, this, &LocateChoices::TakeChange);
}

void LocateChoices::TakeChange() {
    if (!features_.back()->Layer().IsEmpty()) AddFeatures();
    ListFields();
    more_->SetCount(squares_->MoreSet() + (distance_->value() > 0 ? 1 : 0) +
                    (initial_->isChecked() ? 1 : 0) + (Book().isEmpty() ? 0 : 1));
    if (!tableChosen_) table_->SetPath(ProposedTable());
    Q_EMIT Changed();
}

// The fields of any layer tell features apart.
void LocateChoices::ListFields() {
    const QString apart = apart_->currentText();
    const QSignalBlocker quiet(apart_);
    apart_->clear();
    apart_->addItem("nothing: one listing for each name");
    for (const auto* const row : features_)
        for (const QString& field : row->Layer().Fields())
            if (apart_->findText(field, Qt::MatchFixedString) < 0) apart_->addItem(field);
    apart_->setCurrentIndex(std::max(0, apart_->findText(apart)));
}

QString LocateChoices::ProposedTable() const {
    const LayerField& first = features_.front()->Layer();
    if (first.IsEmpty()) return {};
    const std::string file = first.File();
    const QString path = file.empty() ? "." : QFileInfo(desk::ToQt(file)).path();
    return (path == "." ? QString() : path + '/') + QFileInfo(first.Path()).completeBaseName() +
           "-listings.dbf";
}

bool LocateChoices::CanLocate() const {
    return features_.front()->Layer().IsUsable() && sheets_->IsUsable() && squares_->IsUsable() &&
           std::ranges::all_of(features_, [](const auto* row) {
               return row->Layer().IsEmpty() || row->Layer().IsUsable();
           });
}

LocateOptions LocateChoices::Options() const {
    LocateOptions options;
    for (const auto* const row : features_)
        if (!row->Layer().IsEmpty()) options.features.push_back(row->Options());
    options.sheets = desk::FromQt(sheets_->Path());
    options.page = desk::FromQt(sheets_->Field());
    squares_->FillIn(options);
    if (apart_->currentIndex() > 0) options.apart = {desk::FromQt(apart_->currentText())};
    options.distance = distance_->value();
    options.initial = initial_->isChecked();
    options.book = desk::FromQt(Book());
    return options;
}

QString LocateChoices::Table() const {
    return table_->Path();
}

QString LocateChoices::Book() const {
    return book_->Path();
}

std::vector<std::string> LocateChoices::Files() const {
    std::vector<std::string> files;
    for (const auto* const row : features_)
        if (!row->Layer().IsEmpty()) files.push_back(row->Layer().File());
    for (const auto* const layer :
         {static_cast<const LayerField*>(sheets_), &squares_->OwnSquares()})
        if (!layer->IsEmpty()) files.push_back(layer->File());
    return files;
}

}  // namespace app
