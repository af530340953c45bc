// What another screen wants of the item on show: how much of it, what that comes to in the unit of
// its servings, and the button that hands it over. Out of sight while no screen waits.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "basics/values.h"
#include "platform/screen_ports.h"

namespace tavernook {

namespace Ui {
class HandOverBar;
}

class HandOverBar : public QWidget {
    Q_OBJECT

  public:
    using Mode = ports::FoodInventory::ReturnMode;

    explicit HandOverBar(QWidget* parent = nullptr);
    ~HandOverBar() override;

    // For a screen that waits the amount is typed anew; the shopping list wants none.
    void set_mode(i16 mode);
    void set_item(i16 item);  // 0: none

    // An empty box becomes 0.
    f64 amount();
    bool stays_open() const;

    void go_to_amount();
    std::vector<QWidget*> boxes_in_order() const;

  Q_SIGNALS:
    void handed_over();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void tell_amount() noexcept;

    std::unique_ptr<Ui::HandOverBar> ui_;
    i16 item_ = 0;
    i16 mode_ = 0;
};

}  // namespace tavernook
