#include "app/window/LayerField.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/document/Errors.h"
#include "app/window/PathField.h"
#include "app/window/WaitPointer.h"
#include "desk/components/GisLibrary.h"
#include "desk/tables/TablePath.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

QString ChooseSource(QWidget* parent, const QString& present) {
    return QFileDialog::getOpenFileName(
        parent, "Choose Map Data", present,
        "Map data (*.gpkg *.shp *.geojson *.json *.fgb *.sqlite *.gml *.kml);;All files (*)");
}

std::vector<std::string> LayersOf(const desk::TablePath& path) {
    return desk::LoadGisModule("Reading " + path.Text()).Layers(path.source);
}

}  // namespace

LayerField::LayerField(const QString& name, const QString& fieldText, QStringList preferred,
                       QString layerPart, QWidget* parent)
    : QWidget(parent),
      path_(new PathField(
          name, [this](const QString& present) { return ChooseSource(this, present); }, this)),
      layer_(new QComboBox(this)),
      fieldText_(new QLabel(fieldText, this)),
      field_(new QComboBox(this)),
      fault_(new QLabel(this)),
      preferred_(std::move(preferred)),
      layerPart_(std::move(layerPart)) {
    layer_->setObjectName(name + "Layer");
    layer_->setAccessibleName("Layer");
    field_->setObjectName(name + "Field");
    fault_->setObjectName(name + "Fault");
    fault_->setTextFormat(Qt::PlainText);
    fault_->setWordWrap(true);
    fault_->hide();
    fieldText_->setBuddy(field_);
    for (QWidget* const choice : {layer_, field_}) choice->hide();
    fieldText_->hide();
    auto* choices = new QHBoxLayout;
    choices->addWidget(layer_, 1);
    choices->addWidget(fieldText_);
    choices->addWidget(field_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(path_);
    layout->addLayout(choices);
    layout->addWidget(fault_);
    setFocusProxy(path_);
    readSoon_.setSingleShot(true);
    connect(&readSoon_, &QTimer::timeout, this, &LayerField::ReadSource);
    connect(path_, &PathField::Changed, this, &LayerField::TakePath);
    connect(layer_, &QComboBox::currentTextChanged, this, &LayerField::ReadFields);
    connect(field_, &QComboBox::currentTextChanged, this, &LayerField::Changed);
}

bool LayerField::IsEmpty() const {
    return Source().isEmpty();
}

QString LayerField::Source() const {
    return path_->Path();
}

QString LayerField::Path() const {
    const QString layer = layer_->currentText();
    return layer_->isHidden() || layer.isEmpty() ? path_->Path() : path_->Path() + '/' + layer;
}

QString LayerField::Field() const {
    return field_->currentText();
}

QStringList LayerField::Fields() const {
    QStringList fields;
    for (int i = 0; i < field_->count(); ++i) fields << field_->itemText(i);
    return fields;
}

void LayerField::SetPath(const QString& path) {
    path_->SetPath(path);
}

// A server is not asked at each key.
void LayerField::TakePath() {
    constexpr int kPause = 800;  // Milliseconds after which typing has ended.
    readSoon_.stop();
    if (!desk::FindTable(desk::FromQt(Source())).IsConnection()) return ReadSource();
    usable_ = false;
    readSoon_.start(kPause);
    Q_EMIT Changed();
}

// A text being typed is no source until it names one.
void LayerField::ReadSource() {
    const auto path = desk::FindTable(desk::FromQt(path_->Path()));
    {
        const QSignalBlocker quiet(layer_);
        layer_->clear();
    }
    layer_->hide();
    usable_ = false;
    if (IsEmpty() || !path.Exists()) {
        field_->clear();
        ShowFault(IsEmpty() ? QString() : "There is no such file.");
        return Q_EMIT Changed();
    }
    try {
        const WaitPointer wait;
        const auto layers = path.layer.empty() ? LayersOf(path) : std::vector<std::string>();
        const QSignalBlocker quiet(layer_);
        for (const auto& layer : layers) layer_->addItem(desk::ToQt(layer));
        layer_->setVisible(layers.size() > 1);
        if (!layerPart_.isEmpty())
            layer_->setCurrentIndex(std::max(0, layer_->findText(layerPart_, Qt::MatchContains)));
    } catch (const std::exception&) {
        field_->clear();
        ShowFault(desk::ToQt(CurrentSentence()));
        return Q_EMIT Changed();
    }
    ReadFields();
}

void LayerField::ReadFields() {
    const QString before = Field();
    usable_ = false;
    try {
        const WaitPointer wait;
        const auto table = desk::OpenTable(desk::FindTable(desk::FromQt(Path())));
        const QSignalBlocker quiet(field_);
        field_->clear();
        for (const auto& field : table->SourceFields()) field_->addItem(desk::ToQt(field.name));
        for (const QString& name : QStringList(before) + preferred_)
            if (const int at = field_->findText(name, Qt::MatchFixedString); at >= 0) {
                field_->setCurrentIndex(at);
                break;
            }
        usable_ = field_->count() > 0;
        ShowFault(usable_ ? QString() : "The layer has no fields.");
    } catch (const std::exception&) {
        ShowFault(desk::ToQt(CurrentSentence()));
    }
    Q_EMIT Changed();
}

void LayerField::ShowFault(const QString& fault) {
    fieldText_->setVisible(usable_);
    field_->setVisible(usable_);
    fault_->setText(fault);
    fault_->setVisible(!fault.isEmpty());
}

}  // namespace app
