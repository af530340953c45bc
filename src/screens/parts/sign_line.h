// The sign of an item's stock and its words beside each other, as a form shows them. They are heard
// as "Attention: Expired"; who goes from box to box hears the words with the widget beside it that
// the property "describes" names.
#pragma once

#include <QWidget>

#include "screens/parts/stock_sign.h"

class QLabel;

namespace tavernook {

class SignLine : public QWidget {
    Q_OBJECT

  public:
    explicit SignLine(QWidget* parent = nullptr);

    // 0 for none. Nothing is shown of an item with which all is well.
    void show_item(i16 item);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void tell_beside();
    void draw();

    QLabel* picture_;
    QLabel* words_;
    StockSign sign_ = StockSign::none;
};

}  // namespace tavernook
