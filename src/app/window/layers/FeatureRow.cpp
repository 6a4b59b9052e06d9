#include "app/window/layers/FeatureRow.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "app/tables/Constants.h"
#include "app/window/layers/Disclosure.h"
#include "app/window/layers/LayerField.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr double kConstantLines = 2.7;  // Two, and the border.

}  // namespace

FeatureRow::FeatureRow(const QString& name, QWidget* parent)
    : QWidget(parent),
      layer_(new LayerField(name, {{"Name:", {"name", "Listing"}, true}}, {}, this)),
      more_(new Disclosure(name + "More", "More", layer_)),
      where_(new QLineEdit),
      constants_(new QPlainTextEdit) {
    auto* const further = new QWidget(this);
    where_->setObjectName(name + "Where");
    where_->setPlaceholderText("kind <> 'church'");
    where_->setToolTip("An SQL condition; without one, all features are taken");
    constants_->setObjectName(name + "Constants");
    constants_->setPlaceholderText("Kind=Street");
    constants_->setToolTip("Fields with the same value in each record, one on a line");
    constants_->setTabChangesFocus(true);
    constants_->setFixedHeight(qRound(fontMetrics().lineSpacing() * kConstantLines));
    auto* form = new QFormLayout(further);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow("Where:", where_);
    form->addRow("Constants:", constants_);
    layer_->AddBeside(more_);
    more_->Add(further);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(layer_);
    layout->addWidget(further);
    connect(layer_, &LayerField::Changed, this, &FeatureRow::Changed);
    connect(where_, &QLineEdit::textChanged, this, &FeatureRow::TakeChange);
    connect(constants_, &QPlainTextEdit::textChanged, this, &FeatureRow::TakeChange);
}

void FeatureRow::TakeChange() {
    more_->SetCount((where_->text().isEmpty() ? 0 : 1) +
                    (constants_->document()->isEmpty() ? 0 : 1));
    Q_EMIT Changed();
}

FeatureOptions FeatureRow::Options() const {
    FeatureOptions options{desk::FromQt(layer_->Path()),
                           desk::FromQt(layer_->Field()),
                           desk::FromQt(where_->text().trimmed()),
                           {}};
    for (const QString& line : constants_->toPlainText().split('\n'))
        if (!line.trimmed().isEmpty())
            options.constants.push_back(ParseConstant(desk::FromQt(line.trimmed())));
    return options;
}

}  // namespace app
