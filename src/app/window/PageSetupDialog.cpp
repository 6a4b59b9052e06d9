#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <array>

#include "app/document/PageSetup.h"
#include "app/window/Dialogs.h"
#include "app/window/LabelPanel.h"
#include "app/window/PageSizeBox.h"
#include "desk/documents/Document.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

struct MarginRow {
    SetupField field;
    double Margins::*value;
    const char* objectName;
    const char* caption;
};

constexpr std::array kMargins{
    MarginRow{SetupField::Left, &Margins::left, "marginLeft", "&Left:"},
    MarginRow{SetupField::Right, &Margins::right, "marginRight", "&Right:"},
    MarginRow{SetupField::Top, &Margins::top, "marginTop", "&Top:"},
    MarginRow{SetupField::Bottom, &Margins::bottom, "marginBottom", "&Bottom:"}};

class PageSetupDialog : public QDialog {
public:
    PageSetupDialog(WindowSession& session, const PageSetup& before, QWidget* parent);

    PageSetup Value() const;

private:
    QWidget* MakePaper();
    QWidget* MakeMargins();
    void Arrange();
    void Check();
    QString Fault();
    QString LengthFault();

    PageSetup before_;
    PageSizeBox* size_;
    QSpinBox* firstSheet_;
    std::array<LengthBox*, kMargins.size()> margins_{};
    LabelPanel* head_;
    LabelPanel* number_;
    QLabel* note_;
    QPushButton* ok_ = nullptr;
};

PageSetupDialog::PageSetupDialog(WindowSession& session, const PageSetup& before, QWidget* parent)
    : QDialog(parent),
      before_(before),
      size_(new PageSizeBox(this)),
      firstSheet_(new QSpinBox(this)),
      note_(new QLabel(this)) {
    setWindowTitle("Page Setup");
    const std::string family = IndexFamily(session.Document());
    head_ = new LabelPanel(session.Host(), kHeadTag, before.head, family, this);
    number_ = new LabelPanel(session.Host(), kNumberTag, before.number, family, this);
    firstSheet_->setObjectName("firstSheet");
    firstSheet_->setRange(0, desk::kLargestFirstSheet);
    firstSheet_->setSpecialValueText("Automatic");
    firstSheet_->setToolTip("Number on the first sheet; automatic: by the map book, or 1");
    firstSheet_->setValue(before.firstSheet);
    Arrange();
    size_->SetSize(before.size);
    connect(size_, &PageSizeBox::Changed, this, &PageSetupDialog::Check);
    for (LengthBox* const box : margins_)
        connect(box, &LengthBox::Changed, this, &PageSetupDialog::Check);
    for (LabelPanel* const panel : {head_, number_})
        connect(panel, &LabelPanel::Changed, this, &PageSetupDialog::Check);
    Check();
}

QWidget* PageSetupDialog::MakePaper() {
    auto* group = new QGroupBox("Sheet", this);
    auto* form = new QFormLayout(group);
    form->addRow("&Size:", size_);
    static_cast<QLabel*>(form->labelForField(size_))->setBuddy(size_->First());
    form->addRow("&First number:", firstSheet_);
    return group;
}

QWidget* PageSetupDialog::MakeMargins() {
    auto* group = new QGroupBox("Margins of the index", this);
    auto* form = new QFormLayout(group);
    for (std::size_t i = 0; i < margins_.size(); ++i) {
        const MarginRow& row = kMargins[i];
        const QString name = QString(row.caption).remove('&').remove(':');
        margins_[i] = new LengthBox(row.objectName, name + " margin", group);
        margins_[i]->SetInches(before_.margins.value_or(Margins{}).*row.value);
        form->addRow(row.caption, margins_[i]);
    }
    return group;
}

void PageSetupDialog::Arrange() {
    note_->setObjectName("fault");
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setMinimumHeight(2 * note_->fontMetrics().lineSpacing());
    note_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    auto* layout = new QGridLayout(this);
    layout->addWidget(MakePaper(), 0, 0);
    layout->addWidget(MakeMargins(), 1, 0);
    layout->addWidget(head_, 0, 1);
    layout->addWidget(number_, 1, 1);
    layout->addWidget(note_, 2, 0, 1, 2);
    layout->addWidget(buttons, 3, 0, 1, 2);
    layout->setRowStretch(2, 1);
    if (!before_.margins)
        for (QWidget* const part :
             std::initializer_list<QWidget*>{margins_.front()->parentWidget(), head_, number_})
            part->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

PageSetup PageSetupDialog::Value() const {
    PageSetup setup = before_;
    setup.size = size_->Size();
    setup.firstSheet = firstSheet_->value();
    for (std::size_t i = 0; setup.margins && i < margins_.size(); ++i)
        (*setup.margins).*kMargins[i].value = margins_[i]->Inches().value_or(0);
    setup.head = head_->Value();
    setup.number = number_->Value();
    return setup;
}

// Returns a sentence about the first field without a length.
QString PageSetupDialog::LengthFault() {
    const QString mustBe = WindowUnit() == LengthUnit::Inches
                               ? " must be a length such as 0.5 in."
                               : " must be a length such as 12.5 mm.";
    for (const LengthBox* const box : margins_)
        if (!box->Inches()) return "The " + box->accessibleName().toLower() + mustBe;
    const bool headIsRight = head_->CheckDistance();
    const bool numberIsRight = number_->CheckDistance();
    if (!headIsRight) return "The distance of the running head" + mustBe;
    return numberIsRight ? QString() : "The distance of the sheet number" + mustBe;
}

QString PageSetupDialog::Fault() {
    QString size = size_->Fault();
    QString length = LengthFault();
    const auto fault = FaultOf(Value(), before_, WindowUnit());
    const bool told = size.isEmpty() && length.isEmpty() && fault;
    for (std::size_t i = 0; i < margins_.size(); ++i)
        ShowWrong(*margins_[i],
                  !margins_[i]->Inches() || (told && fault->field == kMargins[i].field));
    ShowWrong(*head_->TextField(), told && fault->field == SetupField::HeadText);
    if (!size.isEmpty()) return size;
    if (!length.isEmpty()) return length;
    return fault ? desk::ToQt(fault->sentence) : QString();
}

void PageSetupDialog::Check() {
    const QString fault = Fault();
    note_->setText(fault);
    ok_->setEnabled(fault.isEmpty());
}

}  // namespace

bool ChangePageSetup(WindowSession& session, QWidget& window) {
    PageSetupDialog dialog(session, PageSetupOf(session.Document()), &window);
    if (dialog.exec() != QDialog::Accepted) return false;
    const PageSetup setup = dialog.Value();
    return session.Run([&] {
        ApplyPageSetup(session.Document(), setup);
        session.Refresh();
    });
}

}  // namespace app
