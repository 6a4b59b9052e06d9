#include "app/window/LabelPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <string_view>
#include <utility>

#include "desk/text/ItalicFont.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr const char* kPlaces[] = {"Left", "Center", "Right", "As it is"};  // By LabelPlace.

QString FontText(host::IHostTextSymbol& symbol) {
    const auto font = symbol.Font();
    return desk::WithoutMnemonic(desk::ToQt(font->Name())) + ' ' +
           QLocale().toString(font->Size()) + (font->Bold() ? ", bold" : "") +
           (desk::IsItalic(*font) ? ", italic" : "");
}

}  // namespace

LabelPanel::LabelPanel(host::IHost& host, const char* tag, Label label, const std::string& family,
                       QWidget* parent)
    : QGroupBox(parent),
      host_(host),
      label_(std::move(label)),
      family_(family),
      place_(new QComboBox(this)),
      distance_(new LengthBox("", "Distance from the index", this)),
      font_(new QPushButton(this)),
      follows_(new QCheckBox("Typeface of the index", this)) {
    const bool isHead = std::string_view(tag) == kHeadTag;
    setTitle(isHead ? "Running &head" : "Sheet &number");
    setCheckable(true);
    setChecked(label_.shown);
    auto* form = new QFormLayout(this);
    if (isHead) {
        text_ = new QLineEdit(desk::ToQt(label_.text), this);
        text_->setToolTip("$$FIRST and $$LAST stand for the first and last listing of the page");
        form->addRow("Text:", text_);
        connect(text_, &QLineEdit::textChanged, this, &LabelPanel::Changed);
    }
    form->addRow("Position:", place_);
    form->addRow(isHead ? "Above the index:" : "Below the index:", distance_);
    form->addRow("Font:", font_);
    form->addRow(QString(), follows_);
    for (const auto& [widget, name] :
         std::initializer_list<std::pair<QWidget*, const char*>>{{this, ""},
                                                                 {text_, "Text"},
                                                                 {place_, "Place"},
                                                                 {distance_, "Distance"},
                                                                 {font_, "Font"},
                                                                 {follows_, "Follows"}})
        if (widget) widget->setObjectName(QString(tag) + name);
    distance_->SetInches(label_.distance);
    follows_->setChecked(label_.followsIndex);
    FollowIndex(label_.followsIndex);
    FillPlaces();
    connect(this, &QGroupBox::toggled, this, &LabelPanel::Changed);
    connect(distance_, &LengthBox::Changed, this, &LabelPanel::Changed);
    connect(font_, &QPushButton::clicked, this, &LabelPanel::ChooseFont);
    connect(follows_, &QCheckBox::toggled, this, &LabelPanel::FollowIndex);
}

QWidget* LabelPanel::TextField() const {
    return text_;
}

// A label elsewhere can stay there.
void LabelPanel::FillPlaces() {
    for (int place = 0; place <= static_cast<int>(label_.place) || place < 3; ++place)
        place_->addItem(kPlaces[place]);
    place_->setCurrentIndex(static_cast<int>(label_.place));
}

Label LabelPanel::Value() const {
    Label label = label_;
    label.shown = isChecked();
    if (text_) label.text = desk::FromQt(text_->text());
    label.place = static_cast<LabelPlace>(place_->currentIndex());
    label.distance = distance_->Inches().value_or(label_.distance);
    label.followsIndex = follows_->isChecked();
    return label;
}

bool LabelPanel::CheckDistance() {
    const bool right = !isChecked() || distance_->Inches();
    ShowWrong(*distance_, !right);
    return right;
}

// Another family is one of the label's own.
void LabelPanel::ChooseFont() {
    const auto dialog = host_.NewSymbolDialog();
    bool ok = false;
    dialog->AddSymbol(label_.symbol, ok);
    if (ok) dialog->Show(static_cast<host::WindowHandle>(window()->winId()), ok);
    if (!ok) return;
    const auto symbol = host::As<host::IHostTextSymbol>(dialog->Symbol(0));
    if (symbol->Font()->Name() != label_.symbol->Font()->Name()) follows_->setChecked(false);
    label_.symbol = symbol;
    ShowFont();
}

void LabelPanel::FollowIndex(bool follows) {
    if (follows && !family_.empty()) label_.symbol->Font()->SetName(family_);
    ShowFont();
}

void LabelPanel::ShowFont() {
    font_->setText(FontText(*label_.symbol));
}

}  // namespace app
