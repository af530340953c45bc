// Pictures of a text, drawn no wider than the page; the document and its file keep them as they
// are.
#pragma once

#include <QImage>
#include <QObject>
#include <QTextCursor>
#include <QTextObjectInterface>
#include <functional>

namespace tavernook {

// 0 for a picture that is none.
inline long long dots_of(const QImage& picture) {
    return static_cast<long long>(picture.width()) * picture.height();
}

// Empty where the document has no such picture.
QSize picture_dots(const QTextDocument& document, const QTextImageFormat& format);

// Calls `visit` with each picture of the document, selected by the cursor.
void for_each_picture(QTextDocument& document,
                      const std::function<void(QTextCursor, QTextImageFormat)>& visit);

// Register it for QTextFormat::ImageObject.
class FittingPictures : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

  public:
    using QObject::QObject;

    // What the text is enlarged by on show.
    void set_scale(double scale) { scale_ = scale; }

    // At the true size of the text: the width that a picture there has at most, and its size on the
    // page.
    double room(const QTextDocument& document, int place) const;
    QSizeF shown_size(const QTextDocument& document, int place,
                      const QTextImageFormat& format) const;

    QSizeF intrinsicSize(QTextDocument* document, int place, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int place,
                    const QTextFormat& format) override;

  private:
    double scale_ = 1;
};

}  // namespace tavernook
