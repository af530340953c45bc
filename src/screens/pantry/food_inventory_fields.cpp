// The fields of the item screen: from the records into the boxes and back.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/parts/name_boxes.h"
#include "screens/parts/quantity_box.h"
#include "screens/parts/shown_text.h"
#include "ui_FoodInventory.h"

namespace tavernook {

namespace {

constexpr const char* quantity_mask = "#####0.00";
constexpr const char* serving_mask = "#0.00#";
constexpr const char* whole_mask = "0";
constexpr int unit_letters = 12;

// The line ends of a stored text are CR LF; an edited one gets them anew.
QString with_plain_line_ends(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string typed_lines(const QPlainTextEdit& edit, i16 row) {
    const QString typed = edit.toPlainText();
    const std::string& stored = pooled_strings[row];
    if (typed == with_plain_line_ends(shown_text(stored))) return stored;
    QString lines = typed;
    return typed_text(lines.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

}  // namespace

std::vector<FoodInventory::NutrientRow> FoodInventory::nutrient_rows() const {
    return {{ui_->fat, ui_->fat_units},
            {ui_->calories, ui_->calories_units},
            {ui_->cholestorol, ui_->cholestorol_units},
            {ui_->sodium, ui_->sodium_units},
            {ui_->potassium, ui_->potassium_units},
            {ui_->carbohydrates, ui_->carbohydrates_units},
            {ui_->fiber, ui_->fiber_units},
            {ui_->sugars, ui_->sugars_units},
            {ui_->protien, ui_->protien_units}};
}

std::vector<QComboBox*> FoodInventory::unit_boxes() const {
    std::vector<QComboBox*> boxes{ui_->qty_units, ui_->serving_size_units};
    for (const NutrientRow& row : nutrient_rows()) boxes.push_back(row.unit);
    return boxes;
}

std::vector<QuantityBox*> FoodInventory::number_boxes() const {
    std::vector<QuantityBox*> boxes{
        ui_->quantity,     ui_->cost,        ui_->stock_quantity,        ui_->restock_quantity,
        ui_->storage_time, ui_->store_order, ui_->servings_per_qty_unit, ui_->serving_size};
    for (const NutrientRow& row : nutrient_rows()) boxes.push_back(row.value);
    return boxes;
}

std::vector<QWidget*> FoodInventory::fields_in_order() const {
    std::vector<QWidget*> fields{ui_->item_name,      ui_->item_category,
                                 ui_->quantity,       ui_->qty_units,
                                 ui_->stock_quantity, ui_->restock_quantity,
                                 ui_->cost,           ui_->storage_time,
                                 ui_->exp_date,       ui_->lot_track,
                                 ui_->store,          ui_->store_order,
                                 ui_->location_1,     ui_->location_2,
                                 ui_->location_3,     ui_->Text13,
                                 ui_->scan,           ui_->servings_per_qty_unit,
                                 ui_->serving_size,   ui_->serving_size_units};
    for (const NutrientRow& row : nutrient_rows()) {
        fields.push_back(row.value);
        fields.push_back(row.unit);
    }
    for (QWidget* text :
         {static_cast<QWidget*>(ui_->manufacturer), static_cast<QWidget*>(ui_->brand),
          static_cast<QWidget*>(ui_->description), static_cast<QWidget*>(ui_->notes)}) {
        fields.push_back(text);
    }
    return fields;
}

void FoodInventory::set_up_fields() {
    std::vector<QComboBox*> lists = unit_boxes();
    for (QComboBox* box : lists) box->setModel(unit_names_);
    ui_->store->setModel(store_names_);
    lists.push_back(ui_->store);
    for (QComboBox* box : lists) {
        // Completion would turn a new name into a longer one that is there already.
        box->setCompleter(nullptr);
        box->lineEdit()->setMaxLength(unit_letters);
    }
    lists.push_back(ui_->item_category);
    for (QComboBox* box : lists) {
        box->setFocusPolicy(Qt::StrongFocus);
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    for (QWidget* field : fields_in_order()) field->installEventFilter(this);
    for (QComboBox* box : {ui_->qty_units, ui_->serving_size_units}) {
        connect(box, &QComboBox::currentTextChanged, this, &FoodInventory::update_labels);
    }
    for (QuantityBox* box : {ui_->quantity, ui_->servings_per_qty_unit, ui_->serving_size}) {
        connect(box, &QLineEdit::textChanged, this, &FoodInventory::update_labels);
    }
}

// --- into the boxes --------------------------------------------------------------------------

void FoodInventory::fill_fields(i16 item) {
    fill_texts(item);
    fill_names(item);
    fill_dates(item);
    fill_nutrients(item);
    fill_numbers(item);
    fill_catagories(items[item].category);
    ui_->item_name->setText(shown_text(items[item].name.trimmed()));
    ui_->item_name->setCursorPosition(0);
    show_barcode(std::string(items[item].barcode.trimmed()));
    ui_->lot_track->setText(QStringLiteral("Lot Track.."));
    update_labels();
}

void FoodInventory::fill_numbers(i16 item) {
    const ItemRecord& record = items[item];
    ui_->quantity->set_value(lot_total(item), quantity_mask);
    ui_->stock_quantity->set_value(record.stock_quantity, quantity_mask);
    ui_->restock_quantity->set_value(record.restock_quantity, quantity_mask);
    ui_->cost->set_value(record.cost, quantity_mask);
    ui_->storage_time->set_value(record.storage_time, whole_mask);
    ui_->store_order->set_value(record.store_order, whole_mask);
    ui_->servings_per_qty_unit->set_value(record.servings_per_qty_unit, serving_mask);
    ui_->serving_size->set_value(record.serving_size, serving_mask);
}

void FoodInventory::fill_nutrients(i16 item) {
    const auto rows = nutrient_rows();
    for (const NutrientRow& row : rows) show_name(*row.unit, {});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const ItemDetailRecord& detail = item_details[item];
        rows[i].value->set_value(detail.*nutrient_fields[i].value, serving_mask);
        show_name(*rows[i].unit, name_in(units, detail.*nutrient_fields[i].unit));
    }
}

void FoodInventory::fill_texts(i16 item) {
    const ItemDetailRecord& detail = item_details[item];
    const auto text = [](i16 row) { return shown_text(pooled_strings[row]); };
    ui_->manufacturer->setText(text(detail.manufacturer));
    ui_->brand->setText(text(detail.brand));
    ui_->description->setPlainText(with_plain_line_ends(text(detail.description)));
    ui_->notes->setPlainText(with_plain_line_ends(text(detail.notes)));
    const Locations parts = split_locations(pooled_strings[items[item].locations]);
    ui_->location_1->setText(shown_text(parts[0]));
    ui_->location_2->setText(shown_text(parts[1]));
    ui_->location_3->setText(shown_text(parts[2]));
    for (QLineEdit* line :
         {ui_->manufacturer, ui_->brand, ui_->location_1, ui_->location_2, ui_->location_3}) {
        line->setCursorPosition(0);
    }
}

void FoodInventory::fill_names(i16 item) {
    show_name(*ui_->qty_units, name_in(units, items[item].qty_units));
    show_name(*ui_->serving_size_units, name_in(units, items[item].serving_size_units));
    show_name(*ui_->store, name_in(stores, items[item].store));
}

// An item of a category that is not there stands under the first one, and keeps its number until
// another category is chosen.
void FoodInventory::fill_catagories(i16 catagory) {
    ui_->item_category->clear();
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        if (!is_item_catagory(row)) continue;
        ui_->item_category->addItem(shown_text(catagories[row].name.trimmed()), int{row});
    }
    ui_->item_category->model()->sort(0);
    ui_->item_category->setCurrentIndex(ui_->item_category->findData(int{home_catagory(catagory)}));
}

void FoodInventory::fill_dates(i16 item) {
    const ItemRecord& record = items[item];
    const bool known = record.last_restock_date != 0;
    ui_->last_restock->setText(
        known ? shown_text(format_date(record.last_restock_date, "MM/DD/YYYY")) : QString());
    const Date expiry = expiry_date(record);
    ui_->exp_date->setText(expiry == 0 ? QStringLiteral("Exp Date..")
                                       : shown_text("Exp " + format_date(expiry, "MM/DD/YY")));
}

void FoodInventory::clear_fields() {
    for (QuantityBox* box : number_boxes()) box->set_blank();
    for (QComboBox* box : unit_boxes()) show_name(*box, {});
    show_name(*ui_->store, {});
    for (QLineEdit* line : {ui_->item_name, ui_->manufacturer, ui_->brand, ui_->location_1,
                            ui_->location_2, ui_->location_3}) {
        line->clear();
    }
    ui_->description->clear();
    ui_->notes->clear();
    ui_->last_restock->clear();
    ui_->item_category->clear();
    ui_->exp_date->setText(QStringLiteral("Exp Date.."));
    ui_->lot_track->setText(QStringLiteral("Lot Track.."));
    show_barcode(no_barcode);
    update_labels();
}

void FoodInventory::update_labels() {
    const QString unit = ui_->qty_units->currentText().trimmed();
    const QString behind = unit.isEmpty() ? QStringLiteral("...") : unit;
    const QString sign = shown_text(std::string(1, static_cast<char>(currency_symbol)));
    ui_->cost_label->setText(QStringLiteral("Cost(%1)/").arg(sign) + without_mnemonics(behind));
    ui_->servings_per_label->setText(QStringLiteral("Servings/") + without_mnemonics(behind));
    ui_->stock_units->setText(unit);
    ui_->restock_units->setText(unit);
    const QString size = shown_text(format_number(ui_->serving_size->value(), serving_mask));
    ui_->note_line->setText(has_item()
                                ? QStringLiteral("Note:  1 Serving = ") + size + QLatin1Char(' ') +
                                      ui_->serving_size_units->currentText().trimmed()
                                : QString());
    const f64 servings = ui_->quantity->value() * ui_->servings_per_qty_unit->value();
    ui_->servings->setText(has_item() ? shown_text(format_number(servings, quantity_mask))
                                      : QString());
}

void FoodInventory::refresh_quantity() {
    if (shown_item_ == 0) return;
    ui_->item_tree->viewport()->update();
    if (ui_->quantity->touched()) return;
    const bool edited = has_edits();
    ui_->quantity->set_value(items[shown_item_].quantity, quantity_mask);
    if (!edited) take_snapshot();
}

void FoodInventory::refresh_stores() {
    change_list(*store_names_, live_names(stores), {ui_->store});
}

void FoodInventory::refresh_units() {
    change_list(*unit_names_, live_names(units), unit_boxes());
}

// --- and back --------------------------------------------------------------------------------

QStringList FoodInventory::field_texts() const {
    QStringList texts{ui_->item_name->text(),    ui_->item_category->currentData().toString(),
                      ui_->store->currentText(), ui_->location_1->text(),
                      ui_->location_2->text(),   ui_->location_3->text(),
                      shown_text(barcode_),      ui_->manufacturer->text(),
                      ui_->brand->text(),        ui_->description->toPlainText(),
                      ui_->notes->toPlainText()};
    for (const QuantityBox* box : number_boxes()) texts.append(box->text());
    for (const QComboBox* box : unit_boxes()) texts.append(box->currentText());
    return texts;
}

i16 FoodInventory::chosen_catagory() const {
    const auto chosen = static_cast<i16>(ui_->item_category->currentData().toInt());
    if (new_item_) return chosen;
    const i16 stored = items[shown_item_].category;
    return chosen == home_catagory(stored) ? stored : chosen;
}

ItemValues FoodInventory::form_values() const {
    ItemValues values;
    values.name = typed_text(ui_->item_name->text());
    // Accepting never moves stock by the rounding of what is shown.
    values.quantity = ui_->quantity->touched() || new_item_
                          ? ui_->quantity->value_text()
                          : number_text(items[shown_item_].quantity);
    values.stock_quantity = ui_->stock_quantity->value();
    values.storage_time = ui_->storage_time->value();
    values.restock_quantity = ui_->restock_quantity->value();
    values.cost = ui_->cost->value();
    values.qty_units = typed_text(ui_->qty_units->currentText());
    values.serving_size = ui_->serving_size->value();
    values.serving_size_units = typed_text(ui_->serving_size_units->currentText());
    values.servings_per_qty_unit = ui_->servings_per_qty_unit->value();
    values.store = typed_text(ui_->store->currentText());
    values.store_order = round_to_i16(ui_->store_order->value());
    values.category = chosen_catagory();
    values.last_restock_date = platform_clock().now();
    values.barcode = barcode_;
    const auto rows = nutrient_rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        values.nutrients[i] = {rows[i].value->value(), typed_text(rows[i].unit->currentText())};
    }
    values.fat = ui_->fat->value();
    values.calories = ui_->calories->value();
    read_texts(values);
    return values;
}

void FoodInventory::read_texts(ItemValues& values) const {
    const ItemDetailRecord& detail = item_details[new_item_ ? i16{0} : shown_item_];
    const i16 location_row = new_item_ ? i16{0} : items[shown_item_].locations;
    values.manufacturer = typed_text(ui_->manufacturer->text());
    values.brand = typed_text(ui_->brand->text());
    values.description = typed_lines(*ui_->description, detail.description);
    values.notes = typed_lines(*ui_->notes, detail.notes);
    const Locations parts{typed_text(ui_->location_1->text()), typed_text(ui_->location_2->text()),
                          typed_text(ui_->location_3->text())};
    const std::string& stored = pooled_strings[location_row];
    values.locations = parts == split_locations(stored) ? stored : join_locations(parts);
}

}  // namespace tavernook
