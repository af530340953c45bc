#include "screens/pantry/FoodInventory.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>

#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "inventory/item_form.h"
#include "inventory/items.h"
#include "platform/platform.h"
#include "recipes/catagory_removal.h"
#include "reports/preview.h"
#include "screens/pantry/LotView.h"
#include "screens/pantry/catagory_box.h"
#include "screens/pantry/copydialog.h"
#include "screens/pantry/hand_over.h"
#include "screens/pantry/item_toolbars.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/tab_order.h"
#include "transfer/inventory_exchange.h"
#include "ui_FoodInventory.h"

namespace tavernook {

FoodInventory::FoodInventory(QWidget* parent)
    : Screen(parent),
      ui_(laid_out<Ui::FoodInventory>(*this)),
      list_(*ui_->tree_panel),
      form_(*ui_->item_form),
      hand_over_bar_(*ui_->hand_over_bar),
      item_(form_) {
    setWindowIcon(icon(QStringLiteral("inventory")));
    setFocusProxy(&list_);
    ui_->main_splitter->setSizes({380, 720});
    dress_item_toolbars(*this, *ui_->item_toolbar_1, *ui_->item_toolbar_2);
    order_tabs();
    connect_commands();
    connect_panes();
    connect_keys();
    set_food_inventory(this);
    set_return(returns_nowhere);
    update_commands();
}

// Another screen of its kind may have taken its place meanwhile.
FoodInventory::~FoodInventory() {
    if (food_inventory() == this) set_food_inventory(nullptr);
}

// As one reads: commands, list, form, and what is done with it.
void FoodInventory::order_tabs() {
    std::vector<QWidget*> order = buttons_in_order(*ui_->item_toolbar_1);
    for (const auto& more :
         {list_.boxes_in_order(), form_.boxes_in_order(), hand_over_bar_.boxes_in_order(),
          buttons_in_order(*ui_->item_toolbar_2)}) {
        order.insert(order.end(), more.begin(), more.end());
    }
    order.push_back(ui_->close_screen);
    set_tab_order(order);
}

void FoodInventory::connect_keys() {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        on_keys(*this, Qt::CTRL | key, [this] { ui_->item_toolbar_2_1->trigger(); });
    }
    on_keys(*this, QKeySequence::Find, [this] { list_.find(); });
    on_keys(*this, QKeySequence::Refresh, [this] {
        run([this] {
            if (item_.number() != 0) view(item_.number(), false);
            list_.refresh();
        });
    });
}

void FoodInventory::connect_commands() {
    on_command(ui_->item_toolbar_1_1, [this] { start_new_item(); });
    on_command(ui_->item_toolbar_1_2, [this] { new_category(); });
    on_command(ui_->item_toolbar_1_4, [this] { remove(); });
    on_command(ui_->item_toolbar_1_5, [this] { copy_item_shown(); });
    on_command(ui_->item_toolbar_1_6, [] { show_screen(QStringLiteral("StoresForm")); });
    on_command(ui_->item_toolbar_1_7, [] { show_screen(QStringLiteral("UnitsForm")); });
    on_command(ui_->item_toolbar_1_8, [this] { settled([](i16) { inventory_import(); }); });
    on_command(ui_->item_toolbar_1_9, [this] { settled([](i16) { inventory_export(); }); });
    on_command(ui_->item_toolbar_1_10, [this] { settled(preview_usage); });
    on_command(ui_->item_toolbar_1_11, [this] { settled(preview_label); });
    on_command(ui_->count_texts, [] { show_string_count(); });
    on_command(ui_->item_toolbar_2_1, [this] { accept(); });
    on_command(ui_->close_screen, [this] {
        if (settle_edits()) hide_screen();
    });
}

void FoodInventory::connect_panes() {
    connect(&list_, &ItemListPane::chosen, this, &FoodInventory::chosen_in_the_list);
    connect(&list_, &ItemListPane::narrowed, this, &FoodInventory::update_commands);
    connect(&list_, &ItemListPane::leaf_entered, this, [this] {
        if (return_mode_ != returns_nowhere) return hand_over_bar_.go_to_amount();
        form_.go_to_name();
    });
    connect(&list_, &ItemListPane::rename_elsewhere, &form_, &ItemFormPane::rename);
    connect(&list_, &ItemListPane::insert_wanted, ui_->item_toolbar_1_1, &QAction::trigger);
    connect(&list_, &ItemListPane::delete_wanted, ui_->item_toolbar_1_4, &QAction::trigger);
    list_.set_menu({ui_->item_toolbar_1_1, ui_->item_toolbar_1_2, ui_->item_toolbar_1_5,
                    ui_->item_toolbar_1_4, ui_->count_texts});
    connect(&list_, &ItemListPane::command, this, &FoodInventory::run);
    connect(&form_, &ItemFormPane::command, this, &FoodInventory::run);
    connect(&form_, &ItemFormPane::lots_wanted, this,
            [this] { run([this] { show_lot_view(item_.number()); }); });
    connect(&form_, &ItemFormPane::left_at_the_end, this, [this] {
        ui_->item_toolbar_2->widgetForAction(ui_->item_toolbar_2_1)->setFocus(Qt::TabFocusReason);
    });
    connect(&hand_over_bar_, &HandOverBar::handed_over, this,
            [this] { run([this] { add_to_caller(); }); });
}

// --- what is on show ---------------------------------------------------------------------------

// The item that is on show already keeps what the user has changed.
void FoodInventory::view(i16 item, bool select) {
    if (item == item_.number() && !item_.is_new() && item_.has_edits()) {
        form_.follow(item);
    } else {
        if (!item_.settle()) return;
        item_.show(item);
    }
    if (!select) return;
    list_.refresh();
    list_.mark_item(item);
}

void FoodInventory::show_no_item(const QString& marked) {
    item_.show_nothing();
    list_.refresh();
    list_.mark(marked);
}

void FoodInventory::follow_changes() {
    list_.follow_changes();
    if (item_.follow_changes()) return;
    list_.mark_item(0);  // the row may be another item's by now
    say(tr("The item that was on show has been deleted."));
}

void FoodInventory::update_commands() {
    const i16 item = item_.number();
    const bool catagory = list_.marked_catagory() != 0;
    list_.set_item_on_show(item);
    ui_->item_toolbar_2_1->setEnabled(item_.is_any());
    ui_->item_toolbar_1_4->setEnabled(!is_copying_ && !item_.is_new() && (item != 0 || catagory));
    for (QAction* its : {ui_->item_toolbar_1_5, ui_->item_toolbar_1_10, ui_->item_toolbar_1_11})
        its->setEnabled(item != 0);
    hand_over_bar_.set_item(item);
    ui_->form_hint->setVisible(!item_.is_any() && list_.leaf_count() > 0);
}

// A question waits until the key or the mouse button has done its work.
void FoodInventory::chosen_in_the_list() {
    const auto turn = [this] {
        run([this] {
            guarded([this] { turn_to_chosen(); },
                    [](const Fault& fault) {
                        return "Error in item inventory mousedown: " + fault.description;
                    });
        });
    };
    if (item_.has_edits()) {
        QMetaObject::invokeMethod(this, turn, Qt::QueuedConnection);
    } else {
        turn();
    }
}

void FoodInventory::turn_to_chosen() {
    const QString wanted = list_.marked_key();
    const RowRef item(Subject::items, list_.marked_leaf());
    const RowRef catagory(Subject::catagories, list_.marked_catagory());
    if (wanted.isEmpty() || item_.is(item)) return;
    if (!item_.settle()) return list_.mark_item(item_.number());
    list_.mark(wanted);
    current_catagory =
        item.now() != 0 ? home_catagory(items[item.now()].category) : home_catagory(catagory.now());
    item_.show(item.now());
}

bool FoodInventory::settle_edits() {
    const bool had_edits = item_.has_edits();
    bool is_settled = false;
    serve([&] { is_settled = item_.settle(); });
    if (had_edits) list_.refresh();
    return is_settled;
}

// --- commands ----------------------------------------------------------------------------------

// Asks first, so that a cancelled box leaves what was shown.
bool FoodInventory::start_new_item() {
    if (!item_.settle()) return false;
    const auto name = boxes().input("Please Enter New Item Name", "New Item", "");
    if (!name) return false;
    const i16 catagory = home_catagory(current_catagory);
    item_.show_new(std::string(trim(*name)), catagory);
    list_.mark_catagory(catagory);
    form_.go_to_first_blank();
    return true;
}

void FoodInventory::accept() {
    if (!item_.is_any() || !item_.store(item_.is_new())) return;
    view(item_.number(), true);
    say(tr("%1 is accepted.").arg(item_name(item_.number())));
}

void FoodInventory::new_category() {
    const i16 row = ask_new_catagory();
    if (row == 0) return;
    list_.refresh();
    if (item_.is_any()) return;
    list_.mark_catagory(row);
    current_catagory = row;
}

void FoodInventory::remove() {
    const i16 item = item_.number();
    const i16 catagory = list_.marked_catagory();
    if (item_.is_new() || (item == 0 && catagory == 0)) return;
    const QString name = item_name(item);
    const i16 gone = item != 0 ? delete_item(item) : delete_catagory(catagory);
    // The user may have closed the replacement screen.
    if (gone == 0 || item_.number() != 0) return;
    project_modified = i16_true;
    show_no_item(list_.key_beside_marked());
    if (const i16 next = list_.marked_leaf()) view(next, true);
    if (item != 0 && items[item].in_use == 0) say(tr("%1 is deleted.").arg(name));
}

// What reads the stored items comes behind the edits of the one on show.
void FoodInventory::settled(const std::function<void(i16 item)>& command) {
    if (item_.settle()) command(item_.number());
}

void FoodInventory::copy_item_shown() {
    if (!item_.settle() || item_.number() == 0) return;
    connect(&open_copydialog(*this, item_.number()), &QDialog::finished, this, [this] {
        is_copying_ = false;
        update_commands();
    });
    is_copying_ = true;
}

void FoodInventory::add_to_caller() {
    if (item_.number() == 0 || !item_.settle() || item_.number() == 0) return;
    hand_over(return_mode_, item_.number(), hand_over_bar_.amount());
    if (!hand_over_bar_.stays_open()) hide_screen();
}

void FoodInventory::hide_screen() {
    if (item_.is_new()) item_.show_nothing();
    set_return(returns_nowhere);
    auto* child = qobject_cast<QMdiSubWindow*>(parentWidget());
    (child != nullptr ? static_cast<QWidget*>(child) : this)->hide();
}

// --- what other screens ask --------------------------------------------------------------------

// Their step goes on; its end brings the look for changes.
void FoodInventory::serve(const Work& what_is_asked) {
    guarded(what_is_asked);
    update_commands();
}

void FoodInventory::view_item(i16 item, i16 select) {
    serve([&] { view(item, select != 0); });
}

void FoodInventory::set_view(i16 view) {
    serve([&] { list_.set_view(view == 0 ? ItemListPane::View::tree : ItemListPane::View::list); });
}

void FoodInventory::add_barcode(std::string_view barcode) {
    serve([&] {
        if (start_new_item()) form_.set_code(std::string(barcode));
    });
}

void FoodInventory::take_barcode(std::string_view barcode) {
    serve([&] { form_.take_code(std::string(barcode)); });
}

void FoodInventory::accept_item(bool is_new) {
    serve([&] { item_.store(is_new); });
    list_.refresh();
}

void FoodInventory::refresh_quantity() {
    serve([this] { form_.follow(item_.number()); });
}

void FoodInventory::set_return(i16 mode) {
    return_mode_ = mode;
    hand_over_bar_.set_mode(mode);
}

// --- what Qt tells -----------------------------------------------------------------------------

void FoodInventory::closeEvent(QCloseEvent* event) {
    event->ignore();
    run([&] { event->setAccepted(settle_edits()); });
}

// What was opened last goes first.
void FoodInventory::keyPressEvent(QKeyEvent* event) {
    const bool escape = event->key() == Qt::Key_Escape;
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (escape && list_.show_all()) return;
    if (escape && return_mode_ != returns_nowhere) return ui_->close_screen->click();
    if (event->key() == Qt::Key_Slash && plain) return list_.find();
    QWidget::keyPressEvent(event);
}

}  // namespace tavernook
