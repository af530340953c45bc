// What a serving of an item is, and how many of them are in stock.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "basics/values.h"

class QComboBox;

namespace tavernook {

class FormFields;
struct ItemValues;

namespace Ui {
class ServingPane;
}

class ServingPane : public QWidget {
    Q_OBJECT

  public:
    explicit ServingPane(QWidget* parent = nullptr);
    ~ServingPane() override;

    void add_fields(FormFields& fields);
    void read(ItemValues& values) const;

    // The lines beside the boxes count from the stock; without an item they are empty.
    void show_stock(bool has_item, f64 quantity, const QString& unit);

    QComboBox& unit_box() const;
    std::vector<QWidget*> boxes_in_order() const;

  private:
    void update_lines() noexcept;
    void write_lines();

    std::unique_ptr<Ui::ServingPane> ui_;
    bool has_item_ = false;
    f64 quantity_ = 0;
};

}  // namespace tavernook
