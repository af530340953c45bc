#include "screens/grocery/ShoppingList.h"

#include <QFocusEvent>
#include <QToolBar>
#include <algorithm>

#include "barcodes/scanned_code.h"
#include "basics/number_text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "platform/platform.h"
#include "reports/pages/list_page.h"
#include "reports/preview.h"
#include "screens/grocery/list_pane.h"
#include "screens/grocery/pick_pane.h"
#include "screens/parts/drag_text.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/scan_entry.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/toolbar_parts.h"
#include "shopping/list_rows.h"
#include "shopping/shopping_list.h"
#include "ui_ShoppingList.h"

namespace tavernook {

namespace {

std::string name_of(const ItemRecord& item) {
    return std::string(item.name.trimmed());
}

std::string name_of(i16 item) {
    return name_of(row_or_none(items, item));
}

// "Milk", "Milk and Bread", "Milk, Bread, Salt and 4 more".
std::string first_names(const std::vector<i16>& found) {
    constexpr std::size_t told = 3;
    const std::size_t shown = std::min(found.size(), told);
    std::string names = name_of(found.front());
    for (std::size_t n = 1; n < shown; ++n) {
        names += (n + 1 == found.size() ? " and " : ", ") + name_of(found[n]);
    }
    const std::size_t more = found.size() - shown;
    return more == 0 ? names : names + " and " + std::to_string(more) + " more";
}

// What went wrong comes first: the end of a long line may be out of sight.
std::string words_for(const Booking& booking) {
    std::string words;
    if (!booking.failed.empty()) {
        words += "Failed, still on the list: " + first_names(booking.failed) + ". ";
    }
    if (!booking.without_lot.empty()) {
        words += "No empty lot, off the list: " + first_names(booking.without_lot) + ". ";
    }
    const std::size_t placed = booking.placed.size();
    if (placed == 0) return words + "Nothing was put in stock.";
    return words + std::to_string(placed) + (placed == 1 ? " item was" : " items were") +
           " put in stock: " + first_names(booking.placed) + ".";
}

FileDialogRequest list_dialog(const char* title) {
    const std::string folder = project_path.substr(0, project_path.rfind('/') + 1);
    return {title, "Grocery List (*.lst)|*.lst", folder + "*.lst"};
}

std::string file_name(const std::string& path) {
    return text_from_utf8(file_name_part(path));
}

std::string items_told(i16 count) {
    return std::to_string(count) + (count == 1 ? " item is" : " items are");
}

void say_gone() {
    say(QObject::tr("This item is not there any more."));
}

}  // namespace

ShoppingList::ShoppingList(QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::ShoppingList>()),
      list_((ui_->setupUi(this), *ui_->list_panel)),
      picks_(*ui_->pick_panel) {
    setWindowIcon(icon(QStringLiteral("grocery_list")));
    ui_->main_splitter->setSizes({820, 220});
    ui_->main_splitter->setStretchFactor(0, 1);
    ui_->main_splitter->setStretchFactor(1, 0);
    set_up_toolbar();
    set_up_keys();
    connect_list();
    connect_picks();
    list_.watch_for_codes(*this, picks_.list());
    enter_presses_buttons(*this);
    set_shopping_list(this);
    populate_list();
    populate_list2();
}

ShoppingList::~ShoppingList() {
    if (shopping_list() == this) set_shopping_list(nullptr);
}

void ShoppingList::set_up_toolbar() {
    QToolBar& bar = *ui_->list_toolbar;
    show_captions(bar);
    fill_toolbar(*this, bar,
                 {{1, "new_item"}, {2, "print"}, {3, "save"}, {4, "open"}, {5, "put_in_stock"}});
    enlarge_command(bar, *ui_->list_toolbar_5);
    on_command(ui_->list_toolbar_1, [this] { add_from_inventory(); });
    on_command(ui_->list_toolbar_2, preview_list);
    on_command(ui_->list_toolbar_3, [this] { save_list(); });
    on_command(ui_->list_toolbar_4, [this] { load_list(); });
    on_command(ui_->list_toolbar_5, [this] { put_in_stock(); });
}

void ShoppingList::set_up_keys() {
    on_keys(*this, QKeySequence::Find, [this] { picks_.find(); });
    on_keys(*this, QKeySequence::Refresh, [this] {
        run([this] {
            list_.fill();
            picks_.fill();
        });
    });
    on_keys(*this, Qt::Key_Escape, [this] { escape(); });
}

void ShoppingList::connect_list() {
    const auto runs = [this](void (ShoppingList::*command)()) {
        return [this, command] { run([this, command] { (this->*command)(); }); };
    };
    const auto asks = [this](void (*question)(i16)) {
        return [this, question] { run([this, question] { ask_about_item(question); }); };
    };
    connect(&list_, &ListPane::add_wanted, this, runs(&ShoppingList::add_from_inventory));
    connect(&list_, &ListPane::remove_wanted, this, runs(&ShoppingList::remove_selected));
    connect(&list_, &ListPane::view_wanted, this, runs(&ShoppingList::view_selected));
    connect(&list_, &ListPane::quantity_wanted, this, asks(change_shopping_quantity));
    connect(&list_, &ListPane::store_order_wanted, this, asks(change_store_order));
    connect(&list_, &ListPane::dropped, this,
            [this](const QString& text) { run([&] { take_drop(text); }); });
    connect(&list_, &ListPane::scanned, this,
            [this](const std::string& code) { run([&] { take_code(code); }); });
}

void ShoppingList::connect_picks() {
    connect(&picks_, &PickPane::picked, this,
            [this](i16 item) { run([this, item] { add(item); }); });
    connect(&picks_, &PickPane::code_typed, this,
            [this](const QString& line) { list_.take_code_line(line); });
    connect(&picks_, &PickPane::close_wanted, this, [this] { close_screen(*this); });
}

// --- what is shown -------------------------------------------------------------------------------

void ShoppingList::populate_list() {
    guarded([this] { list_.fill(); });
}

void ShoppingList::populate_list2() {
    guarded([this] { picks_.fill(); });
}

bool ShoppingList::Build_HTMLlist(i16 size) {
    list_.fill();
    return tavernook::Build_HTMLlist(shopping_list_page(list_.shown_columns(), list_.shown_items()),
                                     size);
}

void ShoppingList::follow_changes() {
    list_.follow_changes();
    picks_.follow_changes();
}

void ShoppingList::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    list_.follow_header();
}

// Codes are what the screen waits for where a scanner types them, names where there is none. No
// focus proxy, as the Tab key's round would begin again there and leave parts out.
void ShoppingList::focusInEvent(QFocusEvent* event) {
    if (ScanEntry::is_typed_into()) {
        list_.wait_for_codes(event->reason());
    } else {
        picks_.wait_for_names(event->reason());
    }
}

// What was begun last goes first, the screen after it.
void ShoppingList::escape() {
    if (!list_.discard_code() && !picks_.show_all()) close_screen(*this);
}

// --- commands ------------------------------------------------------------------------------------

i16 ShoppingList::selected_item() const {
    if (selected_list_item == 0) return 0;
    const i16 item = list_.selected().now();
    if (item == 0) say_gone();
    return item;
}

void ShoppingList::add_from_inventory() {
    if (show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (ports::FoodInventory* screen = food_inventory())
        screen->set_return(screen->adds_to_shopping_list);
}

void ShoppingList::remove_selected() {
    const std::vector<i16> selected = list_.selected_items();
    if (selected.empty()) return;
    const std::string name = name_of(row_or_none(items, selected.front()));
    for (const i16 item : selected) remove_from_list(item);
    list_.mark_next();
    say(selected.size() == 1 ? name + " is off the list."
                             : std::to_string(selected.size()) + " items are off the list.");
}

void ShoppingList::ask_about_item(const std::function<void(i16)>& question) {
    if (const i16 item = selected_item(); item != 0) question(item);
}

void ShoppingList::view_selected() {
    const i16 item = selected_item();
    if (item == 0 || show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (ports::FoodInventory* screen = food_inventory()) screen->view_item(item, i16_true);
}

void ShoppingList::put_in_stock() {
    const bool was_empty = list_count == 0;
    const Booking booking = book_list_into_stock();
    list_.wait_for_codes(Qt::OtherFocusReason);
    say(was_empty ? std::string("Nothing was on the list.") : words_for(booking));
}

void ShoppingList::save_list() {
    const std::string path = file_dialogs().save_file(list_dialog("Save List"));
    if (path.empty()) return;
    list_.fill();
    if (!Save_Shoplist(path, list_.columns_shown())) return;
    say(items_told(list_count) + " saved in " + file_name(path) + ".");
}

void ShoppingList::load_list() {
    const std::string path = file_dialogs().open_file(list_dialog("Load List"));
    ShownColumns shown = list_.columns_shown();
    if (path.empty() || !populate_loadlist(path, shown)) return;
    list_.show_columns(shown);
    list_.fill();
    const auto unseen = std::count_if(items.begin() + 1, items.end(), [](const ItemRecord& item) {
        return item.in_use == 1 && item.on_shopping_list != 0 && item.shopping_quantity == 0;
    });
    const std::string rest =
        unseen == 0 ? "."
                    : "; nothing is to be bought of " + std::to_string(unseen) + " more in it.";
    say(items_told(list_count) + " on the list from " + file_name(path) + rest);
}

// --- what comes on the list ----------------------------------------------------------------------

// It comes in sight and is marked, so that its quantity can be changed at once.
void ShoppingList::add(i16 item) {
    if (!is_live_row(items, item)) return say_gone();
    add_to_list(item);
    list_.mark_item(item);
    const ItemRecord& added = items[item];
    say(name_of(added) + ": " + number_text(added.shopping_quantity) + " on the list.");
}

void ShoppingList::add_ingredients(i16 recipe) {
    add_recipe_to_list(recipe);
    say("What " + std::string(row_or_none(meals, recipe).name.trimmed()) +
        " takes is on the list.");
}

void ShoppingList::take_drop(const QString& text) {
    const Dragged offer = dragged(text);
    if (offer.item() != 0) return add(offer.item());
    if (offer.recipe() != 0) add_ingredients(offer.recipe());
}

void ShoppingList::take_code(const std::string& code) {
    const i16 item = find_scanned_item(code);
    if (item != 0) return add(item);
    say("No item has the barcode \"" + code + "\". Nothing was added to the list.");
}

}  // namespace tavernook
