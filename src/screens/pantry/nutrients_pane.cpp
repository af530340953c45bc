#include "screens/pantry/nutrients_pane.h"

#include <cmath>
#include <limits>

#include "core/project_data.h"
#include "screens/pantry/form_fields.h"
#include "screens/parts/name_boxes.h"
#include "screens/parts/quantity_box.h"
#include "ui_nutrients_pane.h"

namespace tavernook {

namespace {

constexpr const char* serving_mask = "#0.00#";

}  // namespace

NutrientsPane::NutrientsPane(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::NutrientsPane>()) {
    ui_->setupUi(this);
    rows_ = {{{ui_->fat, ui_->fat_units},
              {ui_->calories, ui_->calories_units},
              {ui_->cholestorol, ui_->cholestorol_units},
              {ui_->sodium, ui_->sodium_units},
              {ui_->potassium, ui_->potassium_units},
              {ui_->carbohydrates, ui_->carbohydrates_units},
              {ui_->fiber, ui_->fiber_units},
              {ui_->sugars, ui_->sugars_units},
              {ui_->protien, ui_->protien_units}}};
}

NutrientsPane::~NutrientsPane() = default;

void NutrientsPane::add_fields(FormFields& fields) {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const NutrientFields& stored = nutrient_fields[row];
        fields.add_number(*rows_[row].value, serving_mask,
                          [&stored](i16 item) { return item_details[item].*stored.value; });
        fields.add_name(*rows_[row].unit, [&stored](i16 item) {
            return name_in(units, item_details[item].*stored.unit);
        });
    }
}

std::array<NutrientValue, nutrient_count> NutrientsPane::values() const {
    std::array<NutrientValue, nutrient_count> values;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        values[row] = {rows_[row].value->value(), typed_text(rows_[row].unit->currentText())};
    }
    return values;
}

f64 NutrientsPane::whole_figure(std::size_t row, i16 stored) const {
    const QuantityBox& box = *rows_[row].value;
    const bool fits = std::abs(box.value()) <= std::numeric_limits<i16>::max();
    return fits || box.touched() ? box.value() : stored;
}

std::vector<QComboBox*> NutrientsPane::unit_boxes() const {
    std::vector<QComboBox*> boxes;
    for (const Row& row : rows_) boxes.push_back(row.unit);
    return boxes;
}

std::vector<QWidget*> NutrientsPane::boxes_in_order() const {
    std::vector<QWidget*> boxes;
    for (const Row& row : rows_) boxes.insert(boxes.end(), {row.value, row.unit});
    return boxes;
}

}  // namespace tavernook
