#include "screens/pantry/item_on_show.h"

#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/pantry/item_form_pane.h"
#include "shopping/shopping_list.h"

namespace tavernook {

namespace {

void tell_other_screens(i16 item) {
    const ItemRecord& record = items[item];
    if (record.on_shopping_list == 0) {
        update_shopping_flag(item);
        if (ports::ShoppingList* list_to_buy = shopping_list()) {
            list_to_buy->populate_list();
            list_to_buy->populate_list2();
        }
    }
    if (ports::CS1504GETUPC* list = scan_list()) {
        list->refresh_item(record.barcode.trimmed(), record.name.trimmed(), item);
    }
    if (ports::Reports* screen = reports()) {
        screen->search_engine();
        screen->populate_list();
    }
}

}  // namespace

void ItemOnShow::show(i16 item) {
    if (!is_live_row(items, item)) return show_nothing();
    item_ = {};
    is_new_ = false;
    ensure_lot_record(item);
    form_.show_item(item);
    item_ = RowRef(Subject::items, item);
}

void ItemOnShow::show_new(const std::string& name, i16 catagory) {
    item_ = {};
    form_.show_new_item(name, catagory);
    is_new_ = true;
}

void ItemOnShow::show_nothing() {
    item_ = {};
    is_new_ = false;
    form_.show_nothing();
}

bool ItemOnShow::follow_changes() {
    const i16 item = number();
    const bool has_gone = item == 0 && item_ != RowRef();
    if (has_gone) show_nothing();
    form_.follow_changes(item);
    return !has_gone;
}

bool ItemOnShow::has_edits() const {
    return is_new_ || (number() != 0 && form_.is_edited());
}

bool ItemOnShow::settle() {
    if (!has_edits()) return true;
    const std::string name = form_.name();
    const std::string what = is_new_ ? "Save the new item " : "Save the changes to ";
    const std::string shown_name = name.empty() ? "without a name" : "\"" + name + "\"";
    const Answer answer =
        boxes().message(what + shown_name + "?", Buttons::yes_no_cancel, "Item Inventory");
    if (answer == Answer::cancel) return false;
    if (answer == Answer::yes) return store(is_new_);
    show(number());
    return true;
}

bool ItemOnShow::store(bool as_new) {
    const i16 present = as_new ? i16{0} : number();
    if (!as_new && present == 0) return true;
    form_.follow(present);
    const ItemValues values = form_.values(present);
    const i16 item = as_new ? create_item_from_form(values) : present;
    if (!as_new && !update_item(item, values)) return false;
    project_modified = i16_true;
    current_catagory = values.category;
    form_.refresh_units();
    form_.refresh_stores();
    show(item);
    tell_other_screens(item);
    return true;
}

}  // namespace tavernook
