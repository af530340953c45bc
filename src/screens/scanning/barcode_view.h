// A barcode on the screen: each module as many whole pixels of the screen wide as there is room
// for, at any scale of the screen, so that all bars are as sharp as in the picture's file. Black on
// white whatever the colours of the windows are, as scanners want it.
#pragma once

#include <QImage>
#include <QWidget>

#include "barcodes/picture.h"

namespace tavernook {

class BarcodeView : public QWidget {
    Q_OBJECT

  public:
    explicit BarcodeView(QWidget* parent = nullptr);

    // Its bars are what is shown: the white beneath them is left out.
    void show_picture(const Picture& picture);

    // Pixels of the screen a module, where the screen has `ratio` of them to a unit of the windows;
    // 0 when there is nothing to show or no room for it.
    int scale(qreal ratio) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QSize size_for(int pixels_a_module) const;

    QImage bars_;
};

}  // namespace tavernook
