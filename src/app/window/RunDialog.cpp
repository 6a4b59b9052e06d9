#include "app/window/RunDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "desk/window/WidgetText.h"

namespace app {
namespace {

// Room for "Numbering pages: listing 1000000 of 1000000 (100 %)", so that the dialog keeps its
// size.
constexpr int kTextWidth = 52;  // Average characters.

}  // namespace

RunDialog::RunDialog(QWidget* parent)
    : QDialog(parent), text_(new QLabel(this)), bar_(new QProgressBar(this)) {
    setObjectName("runDialog");
    setWindowTitle("Making the Index");
    text_->setObjectName("runText");
    text_->setTextFormat(Qt::PlainText);
    text_->setMinimumWidth(fontMetrics().averageCharWidth() * kTextWidth);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(bar_);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void RunDialog::Show(const RunProgress::Shown& shown) {
    text_->setText(desk::ToQt(shown.text));
    // A bar without a range moves to and fro.
    bar_->setRange(0, shown.percent ? 100 : 0);
    bar_->setValue(shown.percent.value_or(0));
}

}  // namespace app
