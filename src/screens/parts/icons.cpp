#include "screens/parts/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

static void load_icon_files() {
    Q_INIT_RESOURCE(icons);
}

namespace tavernook {

namespace {

QColor line_colour(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
        case QIcon::Disabled:
            return palette.color(QPalette::Disabled, QPalette::WindowText);
        case QIcon::Selected:
            return palette.color(QPalette::Active, QPalette::HighlightedText);
        default:
            return palette.color(QPalette::Active, QPalette::WindowText);
    }
}

QByteArray drawing(const QString& name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Keeps the drawing as text, as its colour is known only when it is painted.
class LineIconEngine : public QIconEngine {
  public:
    explicit LineIconEngine(const QString& name) : name_(name), drawing_(drawing(name)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
        if (drawing_.isEmpty()) return;
        QByteArray coloured = drawing_;
        coloured.replace("currentColor", line_colour(mode).name(QColor::HexRgb).toLatin1());
        QSvgRenderer renderer(coloured);
        const int side = std::min(area.width(), area.height());
        QRect square(0, 0, side, side);
        square.moveCenter(area.center());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(painter->opacity() * line_colour(mode).alphaF());
        renderer.render(painter, QRectF(square));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const QString key = QStringLiteral("tavernook/%1/%2x%3/%4")
                                .arg(name_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(line_colour(mode).name(QColor::HexArgb));
        QPixmap picture;
        if (QPixmapCache::find(key, &picture)) return picture;
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, picture);
        return picture;
    }

    QIconEngine* clone() const override { return new LineIconEngine(*this); }
    QString iconName() override { return name_; }
    bool isNull() override { return drawing_.isEmpty(); }

  private:
    QString name_;
    QByteArray drawing_;
};

}  // namespace

QIcon icon(const QString& name) {
    load_icon_files();
    return QIcon(new LineIconEngine(name));
}

}  // namespace tavernook
