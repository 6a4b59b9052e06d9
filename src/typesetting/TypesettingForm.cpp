#include "typesetting/TypesettingForm.h"

#include <QEvent>
#include <QFontInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "model/EditRules.h"
#include "model/GeneralFunctions.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "typesetting/TypesettingLayout.h"

namespace gazetteer {
namespace {

constexpr char kTypesettingFormLabel[] = "CVNGazetteer:TypesettingForm";

constexpr int kFontSizesWide = 50;  // Width of the form in font sizes.
constexpr int kLinesAround = 7;     // Lines of the sheet around it.
// Vertical distances on a low screen, in pixels.
constexpr int kDenseSpacing = 2;
constexpr int kDenseMargin = 4;

// Layouts and what holds them keep their sizes over a change of a layout inside, and are not told
// of a new font before the form is.
void Remeasure(const QWidget& form) {
    for (auto* inner : form.findChildren<QLayout*>()) {
        inner->invalidate();
        inner->parentWidget()->updateGeometry();
    }
}

void MakeDense(QFormLayout& form) {
    form.setVerticalSpacing(kDenseSpacing);
    QMargins margins = form.contentsMargins();
    margins.setTop(kDenseMargin);
    margins.setBottom(kDenseMargin);
    form.setContentsMargins(margins);
}

}  // namespace

using Form = TypesettingForm;

Form::TypesettingForm(host::Ref<host::IHost> host)
    : host_(std::move(host)),
      plain_(new QRadioButton("&Plain rules", this)),
      typeset_(new QRadioButton("&Typeset", this)),
      usual_(new QPushButton("Values of a &New Index", this)),
      picture_(new SamplePicture(host_, this)) {
    plain_->setObjectName("plainRules");
    plain_->setToolTip("A new heading for each first character; dots and lines follow the text.");
    typeset_->setObjectName("typeset");
    typeset_->setToolTip("Pages are set with the settings below.");
    usual_->setObjectName("usualValues");
    usual_->setToolTip("Sets the values with which a new index begins.");
    for (QWidget* const control : {static_cast<QWidget*>(plain_), static_cast<QWidget*>(typeset_),
                                   static_cast<QWidget*>(usual_)})
        control->setAccessibleDescription(control->toolTip());
    MakeControls();
    Arrange();
    connect(typeset_, &QRadioButton::toggled, this,
            [this] { Edit("typeset_Click", [this] { ChooseRules(); }); });
    connect(usual_, &QPushButton::clicked, this,
            [this] { Edit("usualValues_Click", [this] { SetUsualValues(); }); });
    Fill();
}

Form::~TypesettingForm() = default;

void Form::MakeControls() {
    for (const SettingText& text : SettingTexts()) {
        const TypesettingKey* key = FindTypesettingKey(text.key);
        if (key == nullptr)
            throw host::Failure(host::kFailureNotFound, "TypesettingForm",
                                std::string("There is no setting ") + text.key + ".");
        const std::string procedure = std::string(text.key) + "_Change";
        controls_.emplace_back(*this, *host_, *key, text, [this, procedure] {
            Edit(procedure.c_str(), [this] { TakeEdit(); });
        });
        controls_.back().Widget().installEventFilter(this);
    }
}

void Form::Arrange() {
    auto* rules = new QHBoxLayout;
    rules->addWidget(plain_);
    rules->addWidget(typeset_);
    rules->addStretch(1);
    rules->addWidget(usual_);
    boxes_ = NewSettingBoxes(controls_, this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(rules);
    layout->addWidget(picture_);
    layout->addWidget(boxes_);
    layout->addStretch(1);
    FitToScreen();
}

// On a low screen rows stand closer, and the picture gives way.
void Form::FitToScreen() {
    const int room =
        screen()->availableSize().height() - fontMetrics().lineSpacing() * kLinesAround;
    const int usual = kFontSizesWide * QFontInfo(font()).pixelSize();
    picture_->setMaximumHeight(QWIDGETSIZE_MAX);
    Remeasure(*this);
    if (layout()->totalHeightForWidth(usual) > room) {
        for (auto* form : findChildren<QFormLayout*>()) MakeDense(*form);
        Remeasure(*this);
    }
    const QSize least = layout()->totalMinimumSize();
    const int width = std::max(least.width(), usual);
    const int lowest = picture_->minimumSizeHint().height();
    picture_->setMaximumHeight(lowest);
    const int left = room - layout()->totalHeightForWidth(width);
    picture_->setMaximumHeight(lowest + std::max(0, left));
    setMinimumSize(width, least.height());
    resize(width, layout()->totalHeightForWidth(width));
}

void Form::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (layout() != nullptr &&
        (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        FitToScreen();
}

void Form::SetElement(const host::Ref<host::IHostGroupElement>& element) {
    element_ = element;
    const auto stored = StoredTypesetting(element, host_->Locale());
    isPlain_ = !stored.has_value();
    hasOwnValues_ = stored.has_value();
    values_ = stored.value_or(Typesetting());
    Fill();
}

void Form::Fill() {
    populating_ = true;
    (isPlain_ ? plain_ : typeset_)->setChecked(true);
    for (const KeyControl& control : controls_) control.Show(values_, host_->Locale());
    populating_ = false;
    ShowState();
}

std::optional<Typesetting> Form::Edited() const {
    return isPlain_ ? std::nullopt : std::optional(values_);
}

bool Form::HasEdits() const {
    return isPageDirty_ && element_ && Edited() != StoredTypesetting(element_, host_->Locale());
}

void Form::StoreEdits() {
    if (!HasEdits()) return;
    StoreTypesetting(*host_, element_, Edited());
    SetGazetteerProperties(*host_, element_,
                           WithoutResults(*host_, *StoredGazetteerProperties(element_)));
    // Whether it can be drawn is decided anew.
    Require<host::IHostFrameElement>(element_)->SetDraft(false);
}

void Form::Edit(const char* procedure, const std::function<void()>& edit) try {
    if (populating_) return;
    edit();
    isPageDirty_ = true;
    ShowState();
    if (pageSite_) pageSite_->PageChanged();
} catch (...) {
    ShowAtTop(host_->Dialogs(), procedure, kTypesettingFormLabel);
}

void Form::TakeEdit() {
    for (const KeyControl& control : controls_) control.Read(values_, host_->Locale());
    hasOwnValues_ = true;
}

// The first choice of another way than the plain rules begins with usual values: with the initial
// ones nothing would change.
void Form::ChooseRules() {
    isPlain_ = plain_->isChecked();
    if (!isPlain_ && !hasOwnValues_) SetUsualValues();
}

void Form::SetUsualValues() {
    const std::int32_t version = values_.version;
    values_ = PrintTypesetting();
    values_.version = version;
    hasOwnValues_ = true;
    Fill();
}

void Form::ShowState() {
    usual_->setEnabled(!isPlain_);
    boxes_->setEnabled(!isPlain_);
    for (const KeyControl& control : controls_) {
        const bool isUsed = !control.Text().isUsed || control.Text().isUsed(values_);
        control.Widget().setEnabled(isUsed);
        auto& form = *dynamic_cast<QFormLayout*>(control.Widget().parentWidget()->layout());
        if (QWidget* label = form.labelForField(&control.Widget())) label->setEnabled(isUsed);
    }
    picture_->SetTypesetting(Edited().value_or(Typesetting()));
}

// The picture marks what the control under the pointer concerns, else the one with the focus.
bool Form::eventFilter(QObject* object, QEvent* event) {
    const auto subjectOf = [this](const QObject* widget) {
        const auto found = std::ranges::find(controls_, widget, [](const KeyControl& control) {
            return static_cast<const QObject*>(&control.Widget());
        });
        return found == controls_.end() ? Subject::Nothing : found->Text().subject;
    };
    if (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn)
        picture_->SetSubject(subjectOf(object));
    if (event->type() == QEvent::Leave || event->type() == QEvent::FocusOut)
        picture_->SetSubject(subjectOf(focusWidget()));
    return QWidget::eventFilter(object, event);
}

}  // namespace gazetteer
