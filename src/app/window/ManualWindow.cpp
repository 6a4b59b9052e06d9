#include "app/window/ManualWindow.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "desk/window/DialogParent.h"

// Resources of a static library are linked only by this macro, which stands outside of namespaces.
static void LinkManual() {
    Q_INIT_RESOURCE(manual);
}

namespace app {
namespace {

constexpr int kWidestPicture = 680;  // Pixels, so that no page is wider than the window.

// Shows Markdown with pictures no wider than the window, and finds headings by their links.
class ManualText final : public QTextBrowser {
public:
    void GoToHeading(const QString& link);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override {
        QTextBrowser::doSetSource(url, type);
        if (url.hasFragment()) GoToHeading(url.fragment());
    }
};

QVariant ManualText::loadResource(int type, const QUrl& name) {
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) return resource;
    const auto picture = QImage::fromData(resource.toByteArray());
    return picture.width() <= kWidestPicture
               ? picture
               : picture.scaledToWidth(kWidestPicture, Qt::SmoothTransformation);
}

// A link to a heading is its text in small letters, with hyphens for blanks and without signs.
void ManualText::GoToHeading(const QString& link) {
    static const QRegularExpression kSigns("[^\\w\\- ]");
    for (auto block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        if (block.text().toLower().remove(kSigns).replace(' ', '-') != link) continue;
        moveCursor(QTextCursor::End);  // The heading then comes to the top.
        setTextCursor(QTextCursor(block));
        return;
    }
}

}  // namespace

ManualWindow::ManualWindow(QWidget* parent) : QDialog(parent) {
    LinkManual();
    setWindowTitle("Manual");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* text = new ManualText;
    text->setObjectName("manualText");
    text->setOpenExternalLinks(true);
    text->setSource(QUrl("qrc:/manual/manual.md"));
    auto* back = new QPushButton("&Back");
    back->setEnabled(false);
    connect(back, &QPushButton::clicked, text, &QTextBrowser::backward);
    connect(text, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(back);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addLayout(buttons);
    desk::ResizeToScreen(*this, {760, 640});
}

}  // namespace app
