#include "screens/text/fitting_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QTextBlock>
#include <QTextList>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace tavernook {

namespace {

constexpr double smallest_room = 16;

QImage picture_of(const QTextDocument& document, const QTextImageFormat& format) {
    return document.resource(QTextDocument::ImageResource, QUrl(format.name())).value<QImage>();
}

// A length that the format does not tell follows the other one.
QSizeF given_size(const QTextDocument& document, const QTextImageFormat& format) {
    QSizeF size(format.width(), format.height());
    if (size.width() > 0 && size.height() > 0) return size;
    const QSizeF dots(picture_dots(document, format));
    if (dots.isEmpty()) return {smallest_room, smallest_room};
    if (size.width() > 0) return dots * (size.width() / dots.width());
    if (size.height() > 0) return dots * (size.height() / dots.height());
    return dots;
}

double room_at(const QTextDocument& document, int place) {
    const QTextBlock block = document.findBlock(place);
    const QTextBlockFormat format = block.blockFormat();
    double taken = 2 * document.documentMargin() + format.leftMargin() + format.rightMargin() +
                   format.textIndent();
    int levels = format.indent();
    if (const QTextList* list = block.textList()) levels += list->format().indent();
    taken += levels * document.indentWidth();
    return std::max(document.textWidth() - taken, smallest_room);
}

// Scaled once and not at each stroke of a key.
QPixmap drawn(const QImage& picture, const QSize& size) {
    const QString key = QStringLiteral("tavernook/recipe/%1/%2x%3")
                            .arg(picture.cacheKey())
                            .arg(size.width())
                            .arg(size.height());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    pixmap =
        QPixmap::fromImage(picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

}  // namespace

void for_each_picture(QTextDocument& document,
                      const std::function<void(QTextCursor, QTextImageFormat)>& visit) {
    std::vector<std::pair<int, int>> places;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (!fragment.charFormat().isImageFormat()) continue;
            places.emplace_back(fragment.position(), fragment.position() + fragment.length());
        }
    }
    for (const auto& [start, end] : places) {
        QTextCursor cursor(&document);
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        visit(cursor, cursor.charFormat().toImageFormat());
    }
}

QSize picture_dots(const QTextDocument& document, const QTextImageFormat& format) {
    return picture_of(document, format).size();
}

double FittingPictures::room(const QTextDocument& document, int place) const {
    return room_at(document, place) / scale_;
}

QSizeF FittingPictures::shown_size(const QTextDocument& document, int place,
                                   const QTextImageFormat& format) const {
    const QSizeF size = given_size(document, format);
    const double widest = room(document, place);
    return document.textWidth() > 0 && size.width() > widest ? size * (widest / size.width())
                                                             : size;
}

QSizeF FittingPictures::intrinsicSize(QTextDocument* document, int place,
                                      const QTextFormat& format) {
    return shown_size(*document, place, format.toImageFormat()) * scale_;
}

void FittingPictures::drawObject(QPainter* painter, const QRectF& area, QTextDocument* document,
                                 int, const QTextFormat& format) {
    const QImage picture = picture_of(*document, format.toImageFormat());
    const double ratio = painter->device()->devicePixelRatio();
    const QSize size(std::max(1, static_cast<int>(std::lround(area.width() * ratio))),
                     std::max(1, static_cast<int>(std::lround(area.height() * ratio))));
    if (picture.isNull()) return;
    const QPixmap pixmap = drawn(picture, size);
    painter->drawPixmap(area, pixmap, QRectF(pixmap.rect()));
}

}  // namespace tavernook
