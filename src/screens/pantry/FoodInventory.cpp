#include "screens/pantry/FoodInventory.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QToolButton>

#include "basics/text.h"
#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/pantry/LotView.h"
#include "screens/pantry/copydialog.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/toolbar_parts.h"
#include "shopping/shopping_list.h"
#include "ui_FoodInventory.h"

namespace tavernook {

namespace {

constexpr i16 item_catagory_type = -1;
constexpr i16 general = 1;

QString key_of_item(i16 item) {
    return item == 0 ? QString() : QStringLiteral("c%1").arg(item);
}

QString key_of_catagory(i16 row) {
    return QStringLiteral("r%1").arg(row);
}

std::string mousedown_error(const Fault& fault) {
    return "Error in item inventory mousedown: " + fault.description;
}

bool is_plain(const QKeyEvent& event) {
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

}  // namespace

FoodInventory::FoodInventory(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::FoodInventory>()), list_([this]() -> ItemListPane& {
          ui_->setupUi(this);
          return *ui_->tree_panel;
      }()),
      form_(*ui_->item_form),
      hand_over_bar_(*ui_->hand_over_bar) {
    setWindowIcon(icon(QStringLiteral("inventory")));
    setFocusProxy(&list_);
    ui_->main_splitter->setSizes({380, 720});
    ui_->main_splitter->setStretchFactor(0, 1);
    ui_->main_splitter->setStretchFactor(1, 0);
    set_up_toolbars();
    set_up_tab_order();
    connect_commands();
    connect_panes();
    set_up_keys();
    set_food_inventory(this);
    set_return(returns_nowhere);
    update_commands();
}

// Another screen of its kind may have taken its place meanwhile.
FoodInventory::~FoodInventory() {
    if (food_inventory() == this) set_food_inventory(nullptr);
}

void FoodInventory::set_up_toolbars() {
    fill_toolbar(*this, *ui_->item_toolbar_1,
                 {{1, "new_item"},
                  {2, "new_category"},
                  {3, nullptr},
                  {4, "delete"},
                  {5, "copy"},
                  {6, "stores"},
                  {7, "units"},
                  {8, "import"},
                  {9, "export"},
                  {10, "usage"},
                  {11, "label"}});
    fill_toolbar(*this, *ui_->item_toolbar_2, {{1, "accept"}});
    const int line = fontMetrics().height();
    ui_->item_toolbar_1->setIconSize(QSize(line * 3 / 2, line * 3 / 2));
    ui_->item_toolbar_1->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    ui_->item_toolbar_2->setIconSize(QSize(line * 2, line * 2));
    ui_->item_toolbar_2->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (QAction* later : {ui_->item_toolbar_1_8, ui_->item_toolbar_1_9, ui_->item_toolbar_1_10,
                           ui_->item_toolbar_1_11}) {
        later->setEnabled(false);
    }
    auto* accept_button =
        qobject_cast<QToolButton*>(ui_->item_toolbar_2->widgetForAction(ui_->item_toolbar_2_1));
    accept_button->setAutoRaise(false);
    accept_button->installEventFilter(this);
    QFont large = accept_button->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.2);
    accept_button->setFont(large);
}

// As one reads: commands, list, form, and what is done with it.
void FoodInventory::set_up_tab_order() {
    std::vector<QWidget*> order;
    const auto add = [&order](const std::vector<QWidget*>& more) {
        order.insert(order.end(), more.begin(), more.end());
    };
    const auto add_buttons = [&order](QToolBar& bar) {
        for (QAction* action : bar.actions()) {
            if (!action->isSeparator()) order.push_back(bar.widgetForAction(action));
        }
    };
    add_buttons(*ui_->item_toolbar_1);
    add(list_.boxes_in_order());
    add(form_.boxes_in_order());
    add(hand_over_bar_.boxes_in_order());
    add_buttons(*ui_->item_toolbar_2);
    order.push_back(ui_->close_screen);
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void FoodInventory::set_up_keys() {
    const auto accept = [this] { ui_->item_toolbar_2_1->trigger(); };
    on_keys(*this, QKeySequence::Find, [this] { list_.find(); });
    on_keys(*this, QKeySequence(Qt::CTRL | Qt::Key_Return), accept);
    on_keys(*this, QKeySequence(Qt::CTRL | Qt::Key_Enter), accept);
    on_keys(*this, QKeySequence::Refresh, [this] { run([this] { read_anew(); }); });
}

void FoodInventory::connect_commands() {
    on_command(ui_->item_toolbar_1_1, [this] { start_new_item(); });
    on_command(ui_->item_toolbar_1_2, [this] { new_category(); });
    on_command(ui_->item_toolbar_1_4, [this] { remove(); });
    on_command(ui_->item_toolbar_1_5, [this] { copy_item_shown(); });
    on_command(ui_->item_toolbar_1_6, [] { show_screen(QStringLiteral("StoresForm")); });
    on_command(ui_->item_toolbar_1_7, [] { show_screen(QStringLiteral("UnitsForm")); });
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
    connect(&list_, &ItemListPane::menu_wanted, this, [this](const QPoint& on_screen) {
        list_.show_menu(on_screen, {ui_->item_toolbar_1_1, ui_->item_toolbar_1_2,
                                    ui_->item_toolbar_1_5, ui_->item_toolbar_1_4});
    });
    connect(&form_, &ItemFormPane::command, this, &FoodInventory::run);
    connect(&form_, &ItemFormPane::lots_wanted, this, [this] { run([this] { show_lots(); }); });
    connect(&form_, &ItemFormPane::left_at_the_end, this, [this] {
        ui_->item_toolbar_2->widgetForAction(ui_->item_toolbar_2_1)->setFocus(Qt::TabFocusReason);
    });
    connect(&hand_over_bar_, &HandOverBar::handed_over, this,
            [this] { run([this] { add_to_caller(); }); });
}

// --- what is on show ---------------------------------------------------------------------------

void FoodInventory::view_item(i16 item, i16 select) {
    guarded([&] { view(item, select != 0); });
    update_commands();
}

// The item that is on show already keeps what the user has changed.
void FoodInventory::view(i16 item, bool select) {
    if (item == item_.now() && !is_new_ && has_edits()) {
        form_.follow(item);
    } else {
        if (!settle_edits()) return;
        show_item(item);
    }
    if (!select) return;
    list_.refresh();
    list_.mark(key_of_item(item));
}

void FoodInventory::show_item(i16 item) {
    if (!is_live_row(items, item)) return show_nothing();
    item_ = {};
    is_new_ = false;
    ensure_lot_record(item);
    form_.show_item(item);
    item_ = RowRef(Subject::items, item);
    list_.set_on_show(key_of_item(item));
}

void FoodInventory::show_nothing() {
    item_ = {};
    is_new_ = false;
    form_.show_nothing();
    list_.set_on_show({});
}

void FoodInventory::initialize_inv() {
    guarded([this] {
        show_nothing();
        list_.refresh();
        list_.mark({});
    });
    update_commands();
}

void FoodInventory::follow_changes() {
    list_.follow_changes();
    const i16 item = item_.now();
    if (item == 0 && item_ != RowRef()) {
        show_nothing();
        say(tr("The item that was on show has been deleted."));
    }
    form_.follow_changes(item);
}

void FoodInventory::update_commands() {
    const bool item = item_.now() != 0;
    const bool catagory = list_.marked_catagory() != 0;
    ui_->item_toolbar_2_1->setEnabled(has_item());
    ui_->item_toolbar_1_4->setEnabled(!is_copying_ && !is_new_ && (item || catagory));
    ui_->item_toolbar_1_5->setEnabled(item);
    hand_over_bar_.set_item(item);
    list_.rename_action()->setEnabled(item || catagory);
    ui_->form_hint->setVisible(!has_item() && list_.leaf_count() > 0);
    ui_->form_hint->setText(tr("Choose an item in the list, or press \"New Item\"."));
}

// A question waits until the key or the mouse button has done its work.
void FoodInventory::chosen_in_the_list() {
    const auto turn = [this] {
        run([this] { guarded([this] { turn_to_chosen(); }, mousedown_error); });
    };
    if (has_edits()) {
        QMetaObject::invokeMethod(this, turn, Qt::QueuedConnection);
    } else {
        turn();
    }
}

void FoodInventory::turn_to_chosen() {
    const QString wanted = list_.marked_key();
    const RowRef item(Subject::items, list_.marked_leaf());
    const RowRef catagory(Subject::catagories, list_.marked_catagory());
    if (wanted.isEmpty() || (item.now() != 0 && item == item_)) return;
    if (!settle_edits()) return list_.mark(key_of_item(item_.now()));
    list_.mark(wanted);
    current_catagory =
        item.now() != 0 ? home_catagory(items[item.now()].category) : home_catagory(catagory.now());
    show_item(item.now());
}

// --- edits -------------------------------------------------------------------------------------

bool FoodInventory::has_edits() const {
    return is_new_ || (item_.now() != 0 && form_.is_edited());
}

bool FoodInventory::settle_edits() {
    bool settled = false;
    guarded([&] { settled = ask_about_edits(); });
    update_commands();
    return settled;
}

bool FoodInventory::ask_about_edits() {
    if (!has_edits()) return true;
    const std::string name = form_.name();
    const std::string what = is_new_ ? "Save the new item " : "Save the changes to ";
    const std::string shown_name = name.empty() ? "without a name" : "\"" + name + "\"";
    const Answer answer =
        boxes().message(what + shown_name + "?", Buttons::yes_no_cancel, "Item Inventory");
    if (answer == Answer::cancel) return false;
    if (answer == Answer::yes && has_edits()) {
        store(is_new_);
        list_.refresh();
    } else {
        show_item(item_.now());
    }
    return true;
}

// --- commands ----------------------------------------------------------------------------------

void FoodInventory::new_item() {
    guarded([this] { start_new_item(); });
    update_commands();
}

// Asks first, so that a cancelled box leaves what was shown.
bool FoodInventory::start_new_item() {
    if (!settle_edits()) return false;
    const auto name = boxes().input("Please Enter New Item Name", "New Item", "");
    if (!name) return false;
    const i16 catagory = is_item_catagory(current_catagory) ? current_catagory : general;
    show_nothing();
    list_.mark(key_of_catagory(catagory));
    form_.show_new_item(std::string(trim(*name)), catagory);
    is_new_ = true;
    form_.go_to_first_blank();
    return true;
}

void FoodInventory::add_barcode(std::string_view barcode) {
    guarded([&] {
        if (start_new_item()) form_.set_code(std::string(barcode));
    });
    update_commands();
}

void FoodInventory::accept_item(bool is_new) {
    guarded([&] {
        store(is_new);
        list_.refresh();
    });
    update_commands();
}

// What others have changed in the boxes that nobody touched is accepted as they left it.
void FoodInventory::store(bool is_new) {
    const i16 present = is_new ? i16{0} : item_.now();
    if (!is_new && present == 0) return;
    form_.follow(present);
    const ItemValues values = form_.values(present);
    const i16 item = is_new ? create_item_from_form(values) : present;
    if (!is_new) update_item(item, values);
    project_modified = i16_true;
    current_catagory = values.category;
    show_item(item);
    form_.follow(item);
    tell_other_screens(item);
}

void FoodInventory::tell_other_screens(i16 item) {
    if (items[item].on_shopping_list == 0) {
        update_shopping_flag(item);
        if (ports::ShoppingList* list_to_buy = shopping_list()) {
            list_to_buy->populate_list();
            list_to_buy->populate_list2();
        }
    }
    if (ports::CS1504GETUPC* list = scan_list()) {
        list->refresh_item(items[item].barcode.trimmed(), items[item].name.trimmed(), item);
    }
}

void FoodInventory::accept() {
    if (!has_item()) return;
    store(is_new_);
    if (ports::Reports* screen = reports()) {
        screen->search_engine();
        screen->populate_list();
    }
    view(item_.now(), true);
}

void FoodInventory::new_category() {
    const auto name = boxes().input("Enter name of new catagory.", "New Catagory", "");
    if (!name || trim(*name).empty()) return;
    const i16 row = new_catagory(trim(*name), item_catagory_type, 0);
    project_modified = i16_true;
    list_.refresh();
    if (has_item()) return;
    list_.mark(key_of_catagory(row));
    current_catagory = row;
}

void FoodInventory::delete_food_item() {
    guarded([this] { remove(); });
    update_commands();
}

void FoodInventory::remove() {
    if (is_new_) return;
    const i16 item = item_.now();
    const i16 catagory = list_.marked_catagory();
    if (item == 0 && catagory == 0) return;
    const i16 gone = item != 0 ? delete_item(item) : delete_catagory(catagory);
    if (gone == 0) return;
    project_modified = i16_true;
    // The user may have closed the replacement screen.
    if (item_.now() == 0) initialize_inv();
}

void FoodInventory::copy_item_shown() {
    if (!settle_edits() || item_.now() == 0) return;
    auto* dialog = new copydialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->set_index(item_.now());
    connect(dialog, &QDialog::finished, this, [this] {
        is_copying_ = false;
        update_commands();
    });
    is_copying_ = true;
    dialog->open();
}

void FoodInventory::show_lots() {
    const i16 item = item_.now();
    if (item == 0) return;
    ensure_lot_record(item);
    show_lot_view(item);
}

void FoodInventory::read_anew() {
    if (item_.now() != 0) view(item_.now(), false);
    list_.refresh();
}

// --- for other screens -------------------------------------------------------------------------

void FoodInventory::populate_tree() {
    set_view(0);
}

void FoodInventory::populate_Alpha() {
    set_view(1);
}

void FoodInventory::set_view(i16 view) {
    guarded([&] { list_.set_view(view == 0 ? ItemListPane::View::tree : ItemListPane::View::list); });
    update_commands();
}

void FoodInventory::refresh_quantity() {
    guarded([this] { form_.follow(item_.now()); });
}

void FoodInventory::refresh_stores() {
    guarded([this] { form_.refresh_stores(); });
}

void FoodInventory::refresh_units() {
    guarded([this] { form_.refresh_units(); });
}

void FoodInventory::set_return(i16 mode) {
    return_mode_ = mode;
    hand_over_bar_.set_mode(mode);
}

void FoodInventory::add_to_caller() {
    if (item_.now() == 0 || !settle_edits() || item_.now() == 0) return;
    hand_over(item_.now(), hand_over_bar_.amount());
    if (!hand_over_bar_.stays_open()) hide_screen();
}

// A screen that is not loaded gets nothing.
void FoodInventory::hand_over(i16 item, f64 quantity) {
    ports::Mealbuilder* recipes = mealbuilder();
    if (return_mode_ == adds_to_recipe && recipes != nullptr) {
        recipes->add_ingredient(item, quantity, recipes->get_mealid());
    } else if (return_mode_ == adds_to_day && meal_plan() != nullptr) {
        meal_plan()->Add_Item(item, quantity);
    } else if (return_mode_ == sets_quantity_in_recipe && recipes != nullptr) {
        recipes->set_ingredient_qty(item, quantity, recipes->get_mealid());
        recipes->populate_tree_list(recipes->get_mealid());
    } else if (return_mode_ == adds_to_shopping_list) {
        items[item].on_shopping_list = i16_true;
        if (ports::ShoppingList* list = shopping_list()) list->populate_list();
    } else {
        return;
    }
    project_modified = i16_true;
}

void FoodInventory::hide_screen() {
    if (is_new_) show_nothing();
    set_return(returns_nowhere);
    if (auto* child = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        child->hide();
    } else {
        hide();
    }
}

// --- what Qt tells -----------------------------------------------------------------------------

void FoodInventory::closeEvent(QCloseEvent* event) {
    bool may_close = false;
    run([&] { may_close = settle_edits(); });
    event->setAccepted(may_close);
}

// What was opened last goes first.
void FoodInventory::keyPressEvent(QKeyEvent* event) {
    const bool escape = event->key() == Qt::Key_Escape;
    if (escape && list_.show_all()) return;
    if (escape && return_mode_ != returns_nowhere) {
        ui_->close_screen->click();
    } else if (event->key() == Qt::Key_Slash && is_plain(*event)) {
        list_.find();
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool FoodInventory::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (is_plain(key) && is_enter(key)) {
            ui_->item_toolbar_2_1->trigger();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tavernook
