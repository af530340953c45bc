#include "shots/shots_icons.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QWidget>

#include "screens/parts/icons.h"

namespace tavernook {

namespace {

constexpr int row_height = 56;
constexpr int column_width = 400;
constexpr int rows = 16;

struct Sample {
    int side;
    QIcon::Mode mode;
};
constexpr Sample samples[] = {{16, QIcon::Normal}, {24, QIcon::Normal},   {32, QIcon::Normal},
                              {48, QIcon::Normal}, {24, QIcon::Disabled}, {24, QIcon::Selected}};

class IconSheet : public QWidget {
  public:
    IconSheet() : names_(QDir(QStringLiteral(":/icons")).entryList({"*.svg"})) {
        const int columns = (static_cast<int>(names_.size()) + rows - 1) / rows;
        resize(columns * column_width, rows * row_height);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (int i = 0; i < names_.size(); ++i) {
            draw_row(painter, names_[i].chopped(4),
                     QPoint(i / rows * column_width, i % rows * row_height));
        }
    }

  private:
    void draw_row(QPainter& painter, const QString& name, QPoint place) const {
        painter.drawText(QRect(place + QPoint(8, 0), QSize(120, row_height)), Qt::AlignVCenter,
                         name);
        int left = place.x() + 130;
        for (const Sample& sample : samples) {
            const QRect around(left, place.y() + 2, sample.side + 8, row_height - 4);
            if (sample.mode == QIcon::Selected) painter.fillRect(around, palette().highlight());
            const QPixmap drawn =
                icon(name).pixmap(QSize(sample.side, sample.side), devicePixelRatio(), sample.mode);
            painter.drawPixmap(QPoint(left + 4, place.y() + (row_height - sample.side) / 2), drawn);
            left += sample.side + 12;
        }
    }

    QStringList names_;
};

}  // namespace

void take_icons(const TakePicture& take) {
    IconSheet sheet;
    take(QStringLiteral("icons"), sheet);
}

}  // namespace tavernook
