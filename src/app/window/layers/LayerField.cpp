#include "app/window/layers/LayerField.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "app/document/Errors.h"
#include "app/window/PathField.h"
#include "app/window/WaitPointer.h"
#include "desk/components/GisLibrary.h"
#include "desk/tables/TablePath.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr int kLeastCharacters = 8;  // Of a list of names, however long the names are.

// GeoJSON is also called .json, as the desk's documents are, which the other lists do not show.
QString ChooseSource(QWidget* parent, const QString& present) {
    QStringList patterns = {"*.json"};
    for (const auto& ending : desk::TableEndings()) patterns << '*' + desk::ToQt(ending);
    return QFileDialog::getOpenFileName(parent, "Choose Map Data", present,
                                        "Map data (" + patterns.join(' ') + ");;All files (*)");
}

std::vector<std::string> LayersOf(const desk::TablePath& path) {
    return desk::LoadGisModule("Reading " + path.Text()).Layers(path.source);
}

QComboBox* NameList(const QString& name, QWidget* parent) {
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kLeastCharacters);
    list->hide();
    return list;
}

}  // namespace

LayerField::LayerField(const QString& name, const std::vector<AskedField>& asked, QString layerPart,
                       QWidget* parent)
    : QWidget(parent),
      path_(new PathField(
          name, [this](const QString& present) { return ChooseSource(this, present); }, this)),
      layer_(NameList(name + "Layer", this)),
      row_(new QHBoxLayout),
      fault_(new QLabel(this)),
      layerPart_(std::move(layerPart)) {
    layer_->setAccessibleName("Layer");
    fault_->setObjectName(name + "Fault");
    fault_->setTextFormat(Qt::PlainText);
    fault_->setWordWrap(true);
    fault_->hide();
    row_->addWidget(layer_, 1);
    for (const auto& field : asked)
        AddChoice(field, name + "Field" +
                             (choices_.empty() ? QString() : QString::number(choices_.size() + 1)));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(path_);
    layout->addLayout(row_);
    layout->addWidget(fault_);
    setFocusPolicy(Qt::TabFocus);  // Else its label's key does nothing.
    setFocusProxy(path_);
    readSoon_.setSingleShot(true);
    connect(&readSoon_, &QTimer::timeout, this, &LayerField::ReadSource);
    connect(path_, &PathField::Changed, this, &LayerField::TakePath);
    connect(layer_, &QComboBox::currentTextChanged, this, &LayerField::ReadFields);
}

void LayerField::AddChoice(const AskedField& asked, const QString& name) {
    const Choice choice{new QLabel(asked.text, this), NameList(name, this), asked.preferred};
    choice.text->setBuddy(choice.box);
    choice.text->hide();
    if (asked.takesExpressions) {
        choice.box->setEditable(true);
        choice.box->setInsertPolicy(QComboBox::NoInsert);
        choice.box->setToolTip("A field, or a text with fields in brackets: [name] (river)");
    }
    row_->addWidget(choice.text);
    row_->addWidget(choice.box, 1);
    connect(choice.box, &QComboBox::currentTextChanged, this, &LayerField::Changed);
    choices_.push_back(choice);
}

void LayerField::AddBeside(QWidget* widget) {
    widget->setVisible(usable_);
    row_->addWidget(widget);
    beside_.push_back(widget);
}

bool LayerField::IsEmpty() const {
    return Source().isEmpty();
}

bool LayerField::IsUsable() const {
    return usable_ && std::ranges::none_of(choices_, [](const auto& choice) {
               return choice.box->currentText().isEmpty();
           });
}

QString LayerField::Source() const {
    return path_->Path();
}

std::string LayerField::File() const {
    return desk::FindTable(desk::FromQt(Path())).File();
}

QString LayerField::Path() const {
    const QString layer = layer_->currentText();
    return layer_->isHidden() || layer.isEmpty() ? path_->Path() : path_->Path() + '/' + layer;
}

QString LayerField::Field(std::size_t asked) const {
    return choices_[asked].box->currentText();
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
        fields_.clear();
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
        fields_.clear();
        ShowFault(desk::ToQt(CurrentSentence()));
        return Q_EMIT Changed();
    }
    ReadFields();
}

void LayerField::ReadFields() {
    fields_.clear();
    usable_ = false;
    try {
        const WaitPointer wait;
        const auto table = desk::OpenTable(desk::FindTable(desk::FromQt(Path())));
        for (const auto& field : table->SourceFields()) fields_ << desk::ToQt(field.name);
        for (const auto& choice : choices_) FillIn(choice);
        usable_ = !fields_.isEmpty();
        ShowFault(usable_ ? QString() : "The layer has no fields.");
    } catch (const std::exception&) {
        ShowFault(desk::ToQt(CurrentSentence()));
    }
    Q_EMIT Changed();
}

// An expression stays on another layer.
void LayerField::FillIn(const Choice& choice) {
    const QSignalBlocker quiet(choice.box);
    const QString before = choice.box->currentText();
    choice.box->clear();
    choice.box->addItems(fields_);
    if (before.contains('[')) return choice.box->setEditText(before);
    for (const QString& name : QStringList(before) + choice.preferred)
        if (const int at = choice.box->findText(name, Qt::MatchFixedString); at >= 0)
            return choice.box->setCurrentIndex(at);
}

void LayerField::ShowFault(const QString& fault) {
    for (const auto& choice : choices_) {
        choice.text->setVisible(usable_);
        choice.box->setVisible(usable_);
    }
    for (QWidget* const widget : beside_) widget->setVisible(usable_);
    fault_->setText(fault);
    fault_->setVisible(!fault.isEmpty());
}

}  // namespace app
