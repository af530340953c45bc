#include "screens/parts/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <utility>

#include "screens/parts/house_colours.h"

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

// As the drawings name them.
constexpr std::pair<const char*, HouseColour> named_colours[] = {
    {"#a84f2c", HouseColour::accent},
    {"#b3142e", HouseColour::past_date},
    {"#8a6100", HouseColour::low}};

// On the ground of what is selected, and on that of a menu's marked entry, only the palette's own
// colours are sure to be seen.
bool has_one_tone(QIcon::Mode mode) {
    if (mode == QIcon::Active) return QApplication::activePopupWidget() != nullptr;
    return mode != QIcon::Normal;
}

QByteArray coloured(QByteArray drawing, QIcon::Mode mode) {
    const QByteArray line = line_colour(mode).name(QColor::HexRgb).toLatin1();
    for (const auto& [name, colour] : named_colours) {
        const QColor own = house_colour(colour, QGuiApplication::palette());
        drawing.replace(name, has_one_tone(mode) ? line : own.name(QColor::HexRgb).toLatin1());
    }
    return drawing.replace("currentColor", line);
}

QByteArray drawing(const QString& name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Keeps the drawing as text, as its colours are known only when it is painted.
class LineIconEngine : public QIconEngine {
  public:
    explicit LineIconEngine(const QString& name) : name_(name), drawing_(drawing(name)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
        if (drawing_.isEmpty()) return;
        QSvgRenderer renderer(coloured(drawing_, mode));
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
        const QString key = QStringLiteral("tavernook/%1x%2/%3/%4")
                                .arg(size.width())
                                .arg(size.height())
                                .arg(line_colour(mode).alpha())
                                .arg(QLatin1String(coloured(drawing_, mode)));
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
