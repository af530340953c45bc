#include "screens/pantry/serving_pane.h"

#include "basics/number_text.h"
#include "core/project_data.h"
#include "inventory/items.h"
#include "screens/pantry/form_fields.h"
#include "screens/parts/guard.h"
#include "screens/parts/name_boxes.h"
#include "screens/parts/quantity_box.h"
#include "ui_serving_pane.h"

namespace tavernook {

namespace {

constexpr const char* serving_mask = "#0.00#";
constexpr const char* quantity_mask = "#####0.00";

}  // namespace

ServingPane::ServingPane(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::ServingPane>()) {
    ui_->setupUi(this);
    for (QuantityBox* box : {ui_->servings_per_qty_unit, ui_->serving_size}) {
        connect(box, &QLineEdit::textChanged, this, &ServingPane::update_lines);
    }
    connect(ui_->serving_size_units, &QComboBox::currentTextChanged, this,
            &ServingPane::update_lines);
}

ServingPane::~ServingPane() = default;

void ServingPane::add_fields(FormFields& fields) {
    fields.add_number(*ui_->servings_per_qty_unit, serving_mask,
                      [](i16 item) { return items[item].servings_per_qty_unit; });
    fields.add_number(*ui_->serving_size, serving_mask,
                      [](i16 item) { return items[item].serving_size; });
    fields.add_name(*ui_->serving_size_units,
                    [](i16 item) { return name_in(units, items[item].serving_size_units); });
}

void ServingPane::read(ItemValues& values) const {
    values.servings_per_qty_unit = ui_->servings_per_qty_unit->value();
    values.serving_size = ui_->serving_size->value();
    values.serving_size_units = typed_text(ui_->serving_size_units->currentText());
}

void ServingPane::show_stock(bool has_item, f64 quantity, const QString& unit) {
    has_item_ = has_item;
    quantity_ = quantity;
    ui_->servings_per_label->setText(QStringLiteral("Servings/") + without_mnemonics(unit));
    update_lines();
}

// A figure being typed may be beyond all that can be told.
void ServingPane::update_lines() noexcept {
    quietly([this] { write_lines(); });
}

void ServingPane::write_lines() {
    ui_->note_line->clear();
    ui_->servings->clear();
    if (!has_item_) return;
    const QString size = shown_text(format_number(ui_->serving_size->value(), serving_mask));
    ui_->note_line->setText(QStringLiteral("Note:  1 Serving = ") + size + QLatin1Char(' ') +
                            ui_->serving_size_units->currentText().trimmed());
    const f64 servings = quantity_ * ui_->servings_per_qty_unit->value();
    ui_->servings->setText(shown_text(format_number(servings, quantity_mask)));
}

QComboBox& ServingPane::unit_box() const {
    return *ui_->serving_size_units;
}

std::vector<QWidget*> ServingPane::boxes_in_order() const {
    return {ui_->servings_per_qty_unit, ui_->serving_size, ui_->serving_size_units};
}

}  // namespace tavernook
