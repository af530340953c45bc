#include "screens/grocery/ShoppingList.h"

#include <QApplication>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "screens/grocery/rows_in_place.h"
#include "screens/grocery/shopping_rows_model.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "shopping/shopping_list.h"
#include "ui_ShoppingList.h"

namespace tavernook {

namespace {

std::vector<ListColumn> all_columns() {
    return {list_columns.begin(), list_columns.end()};
}

}  // namespace

ShoppingList::ShoppingList(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ShoppingList>()),
      rows_(new ShoppingRowsModel(all_columns(), this)),
      picks_(new ShoppingRowsModel({ListColumn::item}, this)) {
    ui_->setupUi(this);
    setWindowIcon(icon(QStringLiteral("grocery_list")));
    set_up_toolbar();
    set_up_list();
    set_up_columns();
    set_up_pick_list();
    set_up_footer();
    set_up_keys();
    set_up_scanning();
    connect_commands();
    enter_presses_buttons(*this);
    set_shopping_list(this);
    populate_list();
    populate_list2();
}

// The focus may still move while the parts go.
ShoppingList::~ShoppingList() {
    disconnect(qApp, nullptr, this, nullptr);
    if (shopping_list() == this) set_shopping_list(nullptr);
}

// --- what is shown ---------------------------------------------------------------------------

void ShoppingList::populate_list() {
    trap_in_screen([this] { fill_list(); });
}

void ShoppingList::populate_list2() {
    trap_in_screen([this] { fill_list2(); });
}

void ShoppingList::fill_list() {
    collect_list_items();
    std::vector<i16> listed;
    for (i16 row = 1; row <= list_count; ++row) listed.push_back(list_items[row]);
    refill_in_place(*ui_->shopping_list, *rows_, listed);
    show_totals();
    follow_selection();
}

void ShoppingList::show_totals() {
    ui_->total_label->setText(shown_text(total_text));
    ui_->tax_label->setText(shown_text(tax_label()));
    ui_->count_label->setText(list_count == 1 ? tr("1 item") : tr("%1 items").arg(list_count));
}

std::vector<i16> ShoppingList::selected_items() const {
    std::vector<i16> found;
    for (const QItemSelectionRange& range : ui_->shopping_list->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            found.push_back(rows_->item_at(row));
        }
    }
    return found;
}

void ShoppingList::select_item(i16 item) {
    const int row = rows_->row_of(item);
    if (row < 0) return;
    ui_->shopping_list->setCurrentIndex(rows_->index(row, 0));
    ui_->shopping_list->scrollTo(rows_->index(row, 0));
}

void ShoppingList::follow_selection() {
    const std::vector<i16> selected = selected_items();
    const i16 current = rows_->item_at(ui_->shopping_list->currentIndex().row());
    const bool among = std::find(selected.begin(), selected.end(), current) != selected.end();
    selected_list_item = among ? current : selected.empty() ? i16{0} : selected.front();
    for (QAction* action : {ui_->pop2_remove, ui_->pop2_qty, ui_->pop2_so}) {
        action->setEnabled(!selected.empty());
    }
}

// Items may have changed while the user was elsewhere. No box here: it would move the focus again.
void ShoppingList::follow_focus(const QWidget* before, const QWidget* now) {
    const auto is_inside = [this](const QWidget* widget) {
        return widget != nullptr && isAncestorOf(widget);
    };
    if (!is_inside(now) || is_inside(before)) return;
    const auto refresh = [this] {
        fill_list();
        fill_list2();
        follow_scanner();
    };
    trap(refresh, [](const Fault&) {});
}

void ShoppingList::show_popup() {
    if (selected_list_item == 0) return;
    const QTreeView& list = *ui_->shopping_list;
    const int row = std::max(0, rows_->row_of(selected_list_item));
    ui_->shopping_list->scrollTo(rows_->index(row, 0));
    const QRect cell = list.visualRect(rows_->index(row, 0));
    ui_->popmenu2->popup(list.viewport()->mapToGlobal(cell.bottomLeft()));
}

// What was begun last goes first, the screen after it.
void ShoppingList::escape() {
    if (!ui_->Text1->text().isEmpty()) {
        ui_->Text1->discard();
    } else if (!ui_->find_box->text().isEmpty()) {
        ui_->find_box->clear();
    } else {
        close_screen(*this);
    }
}

// --- commands --------------------------------------------------------------------------------

void ShoppingList::add_from_inventory() {
    if (show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (ports::FoodInventory* screen = food_inventory())
        screen->set_return(screen->adds_to_shopping_list);
}

void ShoppingList::remove_selected() {
    const std::vector<i16> selected = selected_items();
    if (selected.empty()) return;
    const int row = ui_->shopping_list->currentIndex().row();
    const std::string name(items[selected.front()].name.trimmed());
    for (const i16 item : selected) remove_from_list(item);
    populate_list();
    const int next = std::min(row, rows_->rowCount() - 1);
    if (next >= 0) ui_->shopping_list->setCurrentIndex(rows_->index(next, 0));
    main_window().set_status(message_panel, selected.size() == 1 ? name + " is off the list."
                                                                 : std::to_string(selected.size()) +
                                                                       " items are off the list.");
}

void ShoppingList::ask_quantity() {
    ask_about_item(change_shopping_quantity);
}

void ShoppingList::ask_store_order() {
    ask_about_item(change_store_order);
}

// The screen may go while the box is open.
void ShoppingList::ask_about_item(const std::function<void(i16)>& question) {
    const i16 item = selected_list_item;
    if (item == 0) return;
    if (items[item].in_use != 1) return populate_list();
    const QPointer<ShoppingList> still_here(this);
    question(item);
    if (!still_here.isNull()) populate_list();
}

void ShoppingList::view_row() {
    const i16 item = selected_list_item;
    if (item == 0) return;
    if (items[item].in_use != 1) return populate_list();
    if (show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (ports::FoodInventory* screen = food_inventory()) screen->view_item(item, i16_true);
}

void ShoppingList::put_in_stock() {
    const i16 shown = list_count;
    book_list_into_stock();
    populate_list();
    ui_->Text1->setFocus(Qt::OtherFocusReason);
    main_window().set_status(message_panel,
                             shown == 0   ? "Nothing was on the list."
                             : shown == 1 ? "1 item was put in stock."
                                          : std::to_string(shown) + " items were put in stock.");
}

// --- what comes on the list --------------------------------------------------------------------

// It comes in sight and is marked, so that its quantity can be changed at once.
void ShoppingList::add(i16 item) {
    add_to_list(item);
    populate_list();
    select_item(item);
    main_window().set_status(message_panel, std::string(items[item].name.trimmed()) + ": " +
                                                number_text(items[item].shopping_quantity) +
                                                " on the list.");
}

void ShoppingList::take_drop(const QString& text) {
    trap_in_screen([&] {
        const i16 number = to_i16(text.mid(1).toInt());
        if (text.startsWith(QLatin1Char('i'))) return add(number);
        drop_on_list(typed_text(text));
        populate_list();
        main_window().set_status(
            message_panel,
            "What " + std::string(meals[number].name.trimmed()) + " takes is on the list.");
    });
}

}  // namespace tavernook
