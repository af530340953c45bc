#include "screens/pantry/item_form_pane.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QStringListModel>
#include <algorithm>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/string_storage.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/name_boxes.h"
#include "screens/parts/qt_dates.h"
#include "screens/parts/quantity_box.h"
#include "screens/parts/scan_entry.h"
#include "screens/parts/screen.h"
#include "screens/parts/select_on_entry.h"
#include "screens/parts/shown_text.h"
#include "ui_item_form_pane.h"

namespace tavernook {

namespace {

constexpr const char* quantity_mask = "#####0.00";
constexpr const char* whole_mask = "0";
constexpr int name_letters = 12;

std::string typed_line(const QLineEdit& edit) {
    return typed_text(edit.text());
}

}  // namespace

ItemFormPane::ItemFormPane(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ItemFormPane>()),
      unit_names_(new QStringListModel(this)),
      store_names_(new QStringListModel(this)) {
    ui_->setupUi(this);
    set_up_boxes();
    // Shares of the room until the user arranges them otherwise.
    ui_->form_splitter->setSizes({400, 340});
    add_fields();
    connect_boxes();
    refresh_units();
    refresh_stores();
    show_nothing();
}

ItemFormPane::~ItemFormPane() = default;

void ItemFormPane::set_up_boxes() {
    std::vector<QComboBox*> lists = unit_boxes();
    for (QComboBox* box : lists) box->setModel(unit_names_);
    ui_->store->setModel(store_names_);
    lists.push_back(ui_->store);
    for (QComboBox* box : lists) {
        offer_names(*box);
        select_on_entry(*box);
        box->lineEdit()->setMaxLength(name_letters);
    }
    lists.push_back(ui_->item_category);
    for (QComboBox* box : lists) {
        box->setFocusPolicy(Qt::StrongFocus);
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    select_on_entry(*ui_->item_name);
    for (QWidget* box : boxes_in_order()) box->installEventFilter(this);
}

// --- the boxes and what they show ------------------------------------------------------------

void ItemFormPane::add_fields() {
    fields_.add_line(*ui_->item_name,
                     [](i16 item) { return shown_text(items[item].name.trimmed()); });
    fields_.add({[this](i16 item) {
                     ui_->item_category->clear();
                     if (item == 0) return;
                     ui_->item_category->fill();
                     ui_->item_category->choose(items[item].category);
                 },
                 [this] { return ui_->item_category->currentData().toString(); }});
    fields_.add({[this](i16 item) {
                     ui_->code_field->show_code(
                         std::string(row_or_none(items, item).barcode.trimmed()));
                 },
                 [this] { return shown_text(ui_->code_field->code()); }});
    add_locations();
    add_names_and_numbers();
    ui_->serving->add_fields(fields_);
    ui_->nutrients->add_fields(fields_);
    ui_->maker->add_fields(fields_);
    // The day is another way to tell the storage time, and counts as touched with it.
    fields_.add(
        {[this](i16 item) { show_dates(item); },
         [this] { return ui_->storage_time->touched() ? QStringLiteral("-") : QString(); }});
}

void ItemFormPane::add_names_and_numbers() {
    fields_.add_name(*ui_->qty_units,
                     [](i16 item) { return name_in(units, items[item].qty_units); });
    fields_.add_name(*ui_->store, [](i16 item) { return name_in(stores, items[item].store); });
    fields_.add_number(*ui_->quantity, quantity_mask, stock_of);
    const auto add = [this](QuantityBox* box, const char* mask, auto figure) {
        fields_.add_number(*box, mask,
                           [figure](i16 item) { return static_cast<f64>(items[item].*figure); });
    };
    add(ui_->stock_quantity, quantity_mask, &ItemRecord::stock_quantity);
    add(ui_->restock_quantity, quantity_mask, &ItemRecord::restock_quantity);
    add(ui_->cost, quantity_mask, &ItemRecord::cost);
    add(ui_->storage_time, whole_mask, &ItemRecord::storage_time);
    add(ui_->store_order, whole_mask, &ItemRecord::store_order);
}

void ItemFormPane::add_locations() {
    QLineEdit* const locations[] = {ui_->location_1, ui_->location_2, ui_->location_3};
    for (std::size_t part = 0; part < std::size(locations); ++part) {
        fields_.add_line(*locations[part], [part](i16 item) {
            return shown_text(split_locations(pooled_text(items[item].locations))[part]);
        });
    }
}

void ItemFormPane::connect_boxes() {
    connect(ui_->qty_units, &QComboBox::currentTextChanged, this, &ItemFormPane::update_labels);
    connect(ui_->quantity, &QLineEdit::textChanged, this, &ItemFormPane::update_labels);
    connect(ui_->lot_track, &QPushButton::clicked, this, &ItemFormPane::lots_wanted);
    connect(ui_->code_field, &CodeField::command, this, &ItemFormPane::command);
    connect(ui_->expiry_field, &ExpiryField::command, this, &ItemFormPane::command);
    connect(ui_->expiry_field, &ExpiryField::picked, this,
            [this](int days) { ui_->storage_time->setText(QString::number(days)); });
}

// "Scan" goes on waiting for the code of an item that is shown anew, as when it was stored.
void ItemFormPane::show_item(i16 item) {
    if (on_ != On::new_item && item_.now() != item) ui_->code_field->give_up_scanning();
    auto emptied = qScopeGuard([this] { show_nothing(); });
    fields_.show(item);
    emptied.dismiss();
    ui_->expiry_field->close_calendar();
    item_ = RowRef(Subject::items, item);
    put_on(On::item);
}

void ItemFormPane::show_new_item(const std::string& name, i16 catagory) {
    show_nothing();
    ui_->expiry_field->show_new_item();
    ui_->item_category->fill();
    ui_->item_category->choose(catagory);
    ui_->item_name->setText(shown_text(name));
    put_on(On::new_item);
}

void ItemFormPane::show_nothing() {
    ui_->code_field->give_up_scanning();
    ui_->expiry_field->close_calendar();
    fields_.show(0);
    put_on(On::nothing);
}

void ItemFormPane::put_on(On shown) {
    on_ = shown;
    const bool any = shown != On::nothing;
    ui_->information_area->widget()->setEnabled(any);
    ui_->nutrition_area->widget()->setEnabled(any);
    ui_->lot_track->setEnabled(shown == On::item);
    ui_->lot_track->setText(QLatin1String(shown == On::new_item ? "Lot Track" : "Lot Track.."));
    update_labels();
}

void ItemFormPane::follow(i16 item) {
    refresh_units();
    refresh_stores();
    if (item != 0) fields_.follow(item);
    if (on_ != On::nothing) ui_->item_category->fill();
    update_labels();
}

void ItemFormPane::follow_changes(i16 item) {
    if (!seen_.is_stale()) return;
    seen_.renew();
    follow(item);
}

void ItemFormPane::refresh_units() {
    change_list(*unit_names_, live_names(units), unit_boxes());
}

void ItemFormPane::refresh_stores() {
    change_list(*store_names_, live_names(stores), {ui_->store});
}

void ItemFormPane::show_dates(i16 item) {
    const ItemRecord& record = row_or_none(items, item);
    const Date restocked = record.last_restock_date;
    ui_->expiry_field->show_date(expiry_date(record));
    ui_->last_restock->setText(restocked == 0 ? QString() : shown_date(restocked, "MM/DD/YYYY"));
}

void ItemFormPane::update_labels() {
    const QString unit = ui_->qty_units->currentText().trimmed();
    const QString behind = unit.isEmpty() ? QStringLiteral("...") : unit;
    const QString sign = shown_text(std::string(1, static_cast<char>(currency_symbol)));
    ui_->cost_label->setText(QStringLiteral("Cost(%1)/").arg(sign) + without_mnemonics(behind));
    ui_->stock_units->setText(unit);
    ui_->restock_units->setText(unit);
    ui_->serving->show_stock(on_ != On::nothing, ui_->quantity->value(), behind);
    ui_->attention_line->show_item(on_ == On::item ? item_.now() : i16{0});
}

// --- and back --------------------------------------------------------------------------------

std::string ItemFormPane::name() const {
    return typed_text(ui_->item_name->text().trimmed());
}

void ItemFormPane::set_code(const std::string& code) {
    ui_->code_field->show_code(code);
}

void ItemFormPane::take_code(const std::string& code) {
    if (ui_->code_field->take(code)) return;
    say(tr("The item that the barcode was for is not on show any more.  Nothing was changed."));
}

ItemValues ItemFormPane::values(i16 item) const {
    const ItemRecord& stored = row_or_none(items, item);
    ItemValues values;
    values.name = typed_line(*ui_->item_name);
    // Accepting never moves stock by the rounding of what is shown.
    values.quantity = ui_->quantity->touched() || item == 0 ? ui_->quantity->value_text()
                                                            : number_text(stored.quantity);
    values.stock_quantity = ui_->stock_quantity->value();
    values.storage_time = ui_->storage_time->value();
    values.restock_quantity = ui_->restock_quantity->value();
    values.cost = ui_->cost->value();
    values.qty_units = typed_text(ui_->qty_units->currentText());
    ui_->serving->read(values);
    values.store = typed_text(ui_->store->currentText());
    values.store_order = round_to_i16(ui_->store_order->value());
    const CatagoryBox& catagory = *ui_->item_category;
    values.category = item == 0 ? catagory.chosen() : catagory.chosen_for(stored.category);
    values.last_restock_date = platform_clock().now();
    values.barcode = ui_->code_field->code();
    values.nutrients = ui_->nutrients->values();
    values.fat = ui_->nutrients->whole_figure(0, stored.fat);
    values.calories = ui_->nutrients->whole_figure(1, stored.calories);
    ui_->maker->read(values, item);
    const Locations parts{typed_line(*ui_->location_1), typed_line(*ui_->location_2),
                          typed_line(*ui_->location_3)};
    const std::string locations(pooled_text(stored.locations));
    values.locations = parts == split_locations(locations) ? locations : join_locations(parts);
    return values;
}

// --- from box to box -------------------------------------------------------------------------

std::vector<QComboBox*> ItemFormPane::unit_boxes() const {
    std::vector<QComboBox*> boxes{ui_->qty_units, &ui_->serving->unit_box()};
    for (QComboBox* box : ui_->nutrients->unit_boxes()) boxes.push_back(box);
    return boxes;
}

std::vector<QWidget*> ItemFormPane::boxes_in_order() const {
    std::vector<QWidget*> boxes;
    const auto add = [&boxes](const std::vector<QWidget*>& more) {
        boxes.insert(boxes.end(), more.begin(), more.end());
    };
    add({ui_->item_name, ui_->item_category, ui_->quantity, ui_->qty_units});
    add({ui_->stock_quantity, ui_->restock_quantity, ui_->cost, ui_->storage_time});
    add({&ui_->expiry_field->button(), ui_->lot_track, ui_->store, ui_->store_order});
    add({ui_->location_1, ui_->location_2, ui_->location_3});
    add(ui_->code_field->boxes_in_order());
    add(ui_->serving->boxes_in_order());
    add(ui_->nutrients->boxes_in_order());
    add(ui_->maker->boxes_in_order());
    return boxes;
}

void ItemFormPane::go_to_name() {
    ui_->item_name->setFocus(Qt::TabFocusReason);
}

void ItemFormPane::rename() {
    ui_->item_name->setFocus(Qt::ShortcutFocusReason);
    ui_->item_name->selectAll();
}

void ItemFormPane::go_to_first_blank() {
    QLineEdit* first = ui_->item_name->text().isEmpty() ? ui_->item_name : ui_->quantity;
    first->setFocus(Qt::TabFocusReason);
}

void ItemFormPane::go_to_next_box(QWidget* box) {
    const std::vector<QWidget*> boxes = boxes_in_order();
    auto next = std::find(boxes.begin(), boxes.end(), box);
    if (next == boxes.end()) return;
    while (++next != boxes.end()) {
        const bool takes_text = qobject_cast<QAbstractButton*>(*next) == nullptr;
        if (takes_text && (*next)->isEnabled() && (*next)->isVisibleTo(this)) {
            return (*next)->setFocus(Qt::TabFocusReason);
        }
    }
    Q_EMIT left_at_the_end();
}

bool ItemFormPane::eventFilter(QObject* watched, QEvent* event) {
    // The wheel scrolls the form; it never changes a box that the pointer happens to pass.
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched) != nullptr) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool is_plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        const bool is_line = qobject_cast<QLineEdit*>(watched) != nullptr ||
                             qobject_cast<QComboBox*>(watched) != nullptr;
        const bool scans = qobject_cast<ScanEntry*>(watched) != nullptr;
        if (is_plain && is_enter(key) && is_line && !scans) {
            go_to_next_box(static_cast<QWidget*>(watched));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tavernook
