#include "screens/scanning/barcode_view.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tavernook {

namespace {

constexpr int comfortable_width = 640;  // in the units of the windows

QImage bars_of(const Picture& picture) {
    QImage bars(picture.width, picture.height / 2, QImage::Format_RGB32);
    for (int y = 0; y < bars.height(); ++y) {
        for (int x = 0; x < bars.width(); ++x) {
            const auto at = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                            static_cast<std::size_t>(x);
            const Colour& colour = picture.pixels[at];
            bars.setPixel(x, y, qRgb(colour.red, colour.green, colour.blue));
        }
    }
    return bars;
}

}  // namespace

BarcodeView::BarcodeView(QWidget* parent) : QWidget(parent) {}

void BarcodeView::show_picture(const Picture& picture) {
    bars_ = bars_of(picture);
    updateGeometry();
    update();
}

int BarcodeView::scale(qreal ratio) const {
    if (bars_.isNull()) return 0;
    const QSizeF room = QSizeF(size()) * ratio;
    return static_cast<int>(std::min(room.width() / bars_.width(), room.height() / bars_.height()));
}

// In the units of the windows, rounded up, so that there is room for all of it.
QSize BarcodeView::size_for(int pixels_a_module) const {
    const QSizeF size = QSizeF(bars_.size()) * pixels_a_module / devicePixelRatioF();
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

QSize BarcodeView::sizeHint() const {
    const int room = static_cast<int>(comfortable_width * devicePixelRatioF());
    return size_for(std::max(1, room / std::max(1, bars_.width())));
}

QSize BarcodeView::minimumSizeHint() const {
    return size_for(1);
}

// The picture begins at a whole pixel of the screen, wherever the window stands.
void BarcodeView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    const QTransform to_screen = painter.deviceTransform();
    const qreal ratio = to_screen.m11();
    const int times = scale(ratio);
    if (times == 0) return;
    QImage drawn =
        bars_.scaled(bars_.size() * times, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    drawn.setDevicePixelRatio(ratio);
    const QSizeF left_over = QSizeF(size()) - drawn.deviceIndependentSize();
    const QPoint corner =
        to_screen.map(QPointF(left_over.width() / 2, left_over.height() / 2)).toPoint();
    painter.drawImage(to_screen.inverted().map(QPointF(corner)), drawn);
}

}  // namespace tavernook
