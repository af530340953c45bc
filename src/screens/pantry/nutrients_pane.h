// What a serving of an item holds: nine amounts, each with a unit, which is chosen or typed.
#pragma once

#include <QWidget>
#include <array>
#include <memory>
#include <vector>

#include "inventory/items.h"

class QComboBox;
class QStringListModel;

namespace tavernook {

class FormFields;
class QuantityBox;

namespace Ui {
class NutrientsPane;
}

class NutrientsPane : public QWidget {
    Q_OBJECT

  public:
    explicit NutrientsPane(QWidget* parent = nullptr);
    ~NutrientsPane() override;

    void add_fields(FormFields& fields);

    // As they stand in the boxes, in the order of `nutrient_fields`.
    std::array<NutrientValue, nutrient_count> values() const;

    // What is kept as a whole number beside the exact figure of that row. A figure that nobody
    // touched and that no whole number fits, as damaged files hold it, leaves the stored one as it
    // is.
    f64 whole_figure(std::size_t row, i16 stored) const;

    // What the unit boxes offer, and in which order the boxes are gone through.
    std::vector<QComboBox*> unit_boxes() const;
    std::vector<QWidget*> boxes_in_order() const;

  private:
    struct Row {
        QuantityBox* value;
        QComboBox* unit;
    };

    std::unique_ptr<Ui::NutrientsPane> ui_;
    std::array<Row, nutrient_count> rows_;
};

}  // namespace tavernook
