// Barcode, expiry date and lots of the item screen.
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include "barcodes/scanners.h"
#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/pantry/LotView.h"
#include "screens/parts/quantity_box.h"
#include "screens/parts/shown_text.h"
#include "ui_FoodInventory.h"

namespace tavernook {

namespace {

QDate today() {
    const CivilDate now = civil_from_date(platform_clock().now());
    return {now.year, now.month, now.day};
}

}  // namespace

// --- barcode ---------------------------------------------------------------------------------

void FoodInventory::show_barcode(const std::string& barcode) {
    barcode_ = barcode.empty() ? no_barcode : barcode;
    ui_->barcode->setText(shown_text(barcode_));
}

void FoodInventory::update_scan() {
    const bool later = scanner_type == batch_scanner;
    ui_->scan->setEnabled(!later);
    ui_->scan->setToolTip(later ? tr("Reading from this scanner is not available in this version.")
                                : tr("Reads or asks for the barcode of this item."));
}

void FoodInventory::scan() {
    update_scan();
    if (!ui_->scan->isEnabled()) return;
    if (scanner_type != no_scanner) return start_capture();
    const auto code = boxes().input("Enter Barcode", "Barcode Entry", "");
    if (code) show_barcode(std::string(trim(*code)));
}

bool FoodInventory::is_capturing() const {
    return !ui_->Text13->isHidden();
}

void FoodInventory::start_capture() {
    ui_->barcode->clear();
    ui_->Text13->clear();
    ui_->Text14->clear();
    ui_->Text13->show();
    ui_->Text13->setFocus(Qt::OtherFocusReason);
}

// An empty entry takes the barcode away; a line that holds no code leaves it as it was.
void FoodInventory::finish_capture() {
    ui_->Text14->setText(ui_->Text14->text() + ui_->Text13->text());
    const std::string line(trim(typed_text(ui_->Text14->text())));
    const std::string code = code_in_line(line);
    const bool unreadable = code.empty() && !line.empty();
    cancel_capture();
    if (unreadable) {
        main_window().set_status(message_panel, "No barcode could be read. Please scan again.");
    } else {
        show_barcode(code);
    }
    ui_->scan->setFocus(Qt::OtherFocusReason);
}

// What was held before stays.
void FoodInventory::cancel_capture() {
    if (!is_capturing()) return;
    ui_->Text13->clear();
    ui_->Text14->clear();
    ui_->Text13->hide();
    ui_->barcode->setText(shown_text(barcode_));
}

// Some scanners end a code with Tab.
bool FoodInventory::capture_key(QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            run([this] { finish_capture(); });
            return true;
        case Qt::Key_Tab:
            if (ui_->Text13->text().isEmpty()) return false;
            run([this] { finish_capture(); });
            return true;
        case Qt::Key_Escape:
            ui_->scan->setFocus(Qt::OtherFocusReason);
            cancel_capture();
            return true;
        default:
            return false;
    }
}

// --- dates and lots --------------------------------------------------------------------------

void FoodInventory::make_month_view() {
    month_box_ = new QFrame(this);
    month_box_->setObjectName(QStringLiteral("month_box"));
    month_box_->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    month_box_->setAutoFillBackground(true);
    month_view_ = new QCalendarWidget(month_box_);
    month_view_->setObjectName(QStringLiteral("month_view"));
    month_view_->setAccessibleName(tr("Date until which it keeps"));
    month_view_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // Red on a dark palette is hard to read.
    month_view_->setWeekdayTextFormat(Qt::Saturday, {});
    month_view_->setWeekdayTextFormat(Qt::Sunday, {});
    auto* layout = new QVBoxLayout(month_box_);
    layout->addWidget(month_view_);
    month_box_->hide();
    const std::pair<const char*, QString> names[] = {
        {"qt_calendar_prevmonth", tr("Month before")}, {"qt_calendar_nextmonth", tr("Month after")},
        {"qt_calendar_monthbutton", tr("Month")},      {"qt_calendar_yearbutton", tr("Year")},
        {"qt_calendar_yearedit", tr("Year")},          {"qt_calendar_calendarview", tr("Days")}};
    for (const auto& [name, shown] : names) {
        if (auto* part = month_view_->findChild<QWidget*>(QLatin1String(name))) {
            part->setAccessibleName(shown);
        }
    }
    connect(month_view_, &QCalendarWidget::clicked, this, &FoodInventory::pick_expiry);
    connect(month_view_, &QCalendarWidget::activated, this, &FoodInventory::pick_expiry);
}

void FoodInventory::toggle_month_view() {
    if (month_box_ == nullptr) make_month_view();
    if (month_box_->isVisible()) return hide_month_view();
    month_view_->setSelectedDate(today());
    month_box_->adjustSize();
    const QPoint below = ui_->exp_date->mapTo(this, QPoint(0, ui_->exp_date->height()));
    const QSize room = size() - month_box_->size();
    month_box_->move(std::clamp(below.x(), 0, std::max(0, room.width())),
                     std::clamp(below.y(), 0, std::max(0, room.height())));
    month_box_->raise();
    month_box_->show();
    month_view_->setFocus(Qt::OtherFocusReason);
}

void FoodInventory::hide_month_view() {
    if (month_box_ != nullptr) month_box_->hide();
}

void FoodInventory::pick_expiry(const QDate& picked) {
    if (!month_box_->isVisible()) return;  // a double click tells of its day twice
    run([&] {
        const Date day = date_from_civil(picked.year(), picked.month(), picked.day());
        const char* mask = date_day_first != 0 ? "DD/MM/YY" : "MM/DD/YY";
        ui_->exp_date->setText(shown_text("Exp " + format_date(day, mask)));
        ui_->storage_time->setText(QString::number(storage_days_until(day)));
        hide_month_view();
        ui_->exp_date->setFocus(Qt::OtherFocusReason);
    });
}

void FoodInventory::show_lots() {
    if (shown_item_ == 0) return;
    hide_month_view();
    ensure_lot_record(shown_item_);
    show_lot_view(shown_item_);
}

void FoodInventory::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    update_scan();
    rebuild_tree();
}

void FoodInventory::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isVisible()) update_scan();
}

// --- handing the item back -------------------------------------------------------------------

void FoodInventory::set_return(i16 mode) {
    return_mode_ = mode;
    if (mode != 0) ui_->quantity_to_add->clear();
    update_return();
}

void FoodInventory::update_return() {
    const char* label = return_mode_ == adds_to_recipe ? "Add Item to Meal"
                        : return_mode_ == adds_to_day  ? "Add Item to Day"
                                                       : "Add Item to ...";
    const char* tip = return_mode_ == adds_to_recipe ? "Adds this item to the recipe."
                      : return_mode_ == adds_to_day  ? "Adds this item to the planned day."
                      : return_mode_ == sets_quantity_in_recipe
                          ? "Sets the quantity of this item in the recipe."
                          : "Puts this item on the shopping list.";
    ui_->add_item->setText(QLatin1String(label));
    ui_->add_item->setToolTip(tr(tip));
    ui_->add_item->setAccessibleDescription(ui_->add_item->toolTip());
    for (QWidget* part :
         {static_cast<QWidget*>(ui_->quantity_to_add_label),
          static_cast<QWidget*>(ui_->quantity_to_add), static_cast<QWidget*>(ui_->add_item),
          static_cast<QWidget*>(ui_->keep_window_open)}) {
        part->setVisible(return_mode_ != returns_nowhere);
    }
}

void FoodInventory::add_to_caller() {
    if (shown_item_ == 0 || !settle_edits() || shown_item_ == 0) return;
    if (ui_->quantity_to_add->text().isEmpty()) ui_->quantity_to_add->setText("0");
    hand_over(ui_->quantity_to_add->value());
    if (!ui_->keep_window_open->isChecked()) hide_screen();
}

// A screen that is not loaded gets nothing.
void FoodInventory::hand_over(f64 quantity) {
    ports::Mealbuilder* recipes = mealbuilder();
    if (return_mode_ == adds_to_recipe && recipes != nullptr) {
        recipes->add_ingredient(shown_item_, quantity, recipes->get_mealid());
    } else if (return_mode_ == adds_to_day && meal_plan() != nullptr) {
        meal_plan()->Add_Item(shown_item_, quantity);
    } else if (return_mode_ == sets_quantity_in_recipe && recipes != nullptr) {
        recipes->set_ingredient_qty(shown_item_, quantity, recipes->get_mealid());
        recipes->populate_tree_list(recipes->get_mealid());
    } else if (return_mode_ == adds_to_shopping_list) {
        items[shown_item_].on_shopping_list = i16_true;
        if (ports::ShoppingList* list = shopping_list()) list->populate_list();
    } else {
        return;
    }
    project_modified = i16_true;
}

}  // namespace tavernook
