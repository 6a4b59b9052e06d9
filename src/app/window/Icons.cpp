#include "app/window/Icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

// Without this call the linker omits the resources of a static library.
static void LoadResources() {
    Q_INIT_RESOURCE(icons);
}

namespace app {
namespace {

// An SVG icon in the palette's text colour, visible on dark desktops too.
class DrawnIcon final : public QIconEngine {
public:
    explicit DrawnIcon(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role =
            mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        QByteArray colored = drawing_;
        colored.replace("currentColor",
                        QApplication::palette().color(group, role).name().toLatin1());
        QSvgRenderer(colored).render(painter, place);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawnIcon(*this); }

private:
    QByteArray drawing_;
};

QIcon Drawn(const QString& name) {
    LoadResources();
    QFile file(":/desk/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new DrawnIcon(file.readAll()));
}

}  // namespace

QIcon ThemeIcon(const QString& name) {
    return QIcon::fromTheme(name, Drawn(name));
}

QIcon ProgramIcon() {
    return Drawn("gazetteer-desk");
}

}  // namespace app
