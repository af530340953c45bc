#include "screens/pantry/FoodInventory.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QToolButton>

#include "basics/text.h"
#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "recipes/catagory_removal.h"
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

QString action_name(const QToolBar& bar, int position) {
    return QStringLiteral("%1_%2").arg(bar.objectName()).arg(position);
}

}  // namespace

FoodInventory::FoodInventory(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::FoodInventory>()),
      model_(new ItemTreeModel(this)),
      unit_names_(new QStringListModel(this)),
      store_names_(new QStringListModel(this)) {
    ui_->setupUi(this);
    setWindowIcon(icon(QStringLiteral("inventory")));
    set_up_toolbars();
    set_up_fields();
    set_up_tree();
    set_up_sizes();
    set_up_tab_order();
    set_up_commands();
    set_up_keys();
    set_food_inventory(this);
    refresh_units();
    refresh_stores();
    initialize_inv();
    set_return(0);
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
    for (const int later : {8, 9, 10, 11}) {
        findChild<QAction*>(action_name(*ui_->item_toolbar_1, later))->setEnabled(false);
    }
    auto* accept_button =
        qobject_cast<QToolButton*>(ui_->item_toolbar_2->widgetForAction(ui_->item_toolbar_2_1));
    accept_button->setAutoRaise(false);
    QFont large = accept_button->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.2);
    accept_button->setFont(large);
}

// As one reads: commands, list, fields, and what is done with them.
void FoodInventory::set_up_tab_order() {
    std::vector<QWidget*> order;
    const auto add_buttons = [&order](QToolBar& bar) {
        for (QAction* action : bar.actions()) {
            if (!action->isSeparator()) order.push_back(bar.widgetForAction(action));
        }
    };
    add_buttons(*ui_->item_toolbar_1);
    for (QWidget* part : std::initializer_list<QWidget*>{
             ui_->filter, ui_->toggle_view, ui_->item_tree, ui_->expand_tree, ui_->collapse_tree}) {
        order.push_back(part);
    }
    for (QWidget* field : fields_in_order()) order.push_back(field);
    for (QWidget* part : std::initializer_list<QWidget*>{ui_->quantity_to_add, ui_->add_item,
                                                         ui_->keep_window_open}) {
        order.push_back(part);
    }
    add_buttons(*ui_->item_toolbar_2);
    order.push_back(ui_->close_screen);
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

// Shares of the room until the user arranges them otherwise; long texts need three lines.
void FoodInventory::set_up_sizes() {
    ui_->main_splitter->setSizes({380, 720});
    ui_->form_splitter->setSizes({400, 340});
    ui_->main_splitter->setStretchFactor(0, 1);
    ui_->main_splitter->setStretchFactor(1, 0);
    for (QPlainTextEdit* text : {ui_->description, ui_->notes}) {
        const int frame =
            2 * (text->frameWidth() + static_cast<int>(text->document()->documentMargin()));
        text->setMinimumHeight(text->fontMetrics().lineSpacing() * 3 + frame);
        text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    }
    QLineEdit* filter = ui_->filter;
    filter->setMinimumWidth(filter->fontMetrics().averageCharWidth() * 14);
}

void FoodInventory::run(const std::function<void()>& command) {
    if (busy_) return;
    busy_ = true;
    trap_in_screen(command);
    busy_ = false;
    update_commands();
}

void FoodInventory::when_clicked(const char* name, const std::function<void()>& command) {
    on_command(*this, name, [this, command] { run(command); });
}

void FoodInventory::set_up_commands() {
    when_clicked("item_toolbar_1_1", [this] { new_item(); });
    when_clicked("item_toolbar_1_2", [this] { new_category(); });
    when_clicked("item_toolbar_1_4", [this] { delete_food_item(); });
    when_clicked("item_toolbar_1_5", [this] { copy_item_shown(); });
    when_clicked("item_toolbar_1_6", [] { show_screen(QStringLiteral("StoresForm")); });
    when_clicked("item_toolbar_1_7", [] { show_screen(QStringLiteral("UnitsForm")); });
    when_clicked("item_toolbar_2_1", [this] { accept(); });
    when_clicked("expand_tree", [this] { expand_all(true); });
    when_clicked("collapse_tree", [this] { expand_all(false); });
    when_clicked("exp_date", [this] { toggle_month_view(); });
    when_clicked("lot_track", [this] { show_lots(); });
    when_clicked("scan", [this] { scan(); });
    when_clicked("add_item", [this] { add_to_caller(); });
    when_clicked("close_screen", [this] {
        if (settle_edits()) hide_screen();
    });
    when_clicked("toggle_view",
                 [this] { set_view(ui_->toggle_view->text() == QLatin1String("Normal") ? 1 : 0); });
}

void FoodInventory::update_commands() {
    const bool item = shown_item_ != 0;
    const bool catagory = selected_catagory() != 0;
    ui_->item_toolbar_2_1->setEnabled(has_item());
    ui_->item_toolbar_1_4->setEnabled(!copying_ && !new_item_ && (item || catagory));
    ui_->item_toolbar_1_5->setEnabled(item);
    ui_->lot_track->setEnabled(item);
    ui_->add_item->setEnabled(item);
    ui_->information_area->widget()->setEnabled(has_item());
    ui_->nutrition_area->widget()->setEnabled(has_item());
    rename_->setEnabled(item || catagory);
    ui_->form_hint->setVisible(!has_item() && model_->item_count() > 0);
    ui_->form_hint->setText(tr("Choose an item in the list, or press \"New Item\"."));
}

// --- what is shown ---------------------------------------------------------------------------

void FoodInventory::view_item(i16 item, i16 select) {
    trap_in_screen([&] {
        const bool same = item == shown_item_ && !new_item_;
        if (!(same && has_edits()) && !settle_edits()) return;
        if (same && has_edits()) {
            refresh_quantity();
        } else {
            show_item(item);
        }
        if (select == 0) return;
        rebuild_tree();
        select_key(QStringLiteral("c%1").arg(item));
    });
    update_commands();
}

void FoodInventory::show_item(i16 item) {
    if (item == 0 || items[item].in_use != 1) return show_nothing();
    cancel_capture();
    hide_month_view();
    ensure_lot_record(item);
    shown_item_ = item;
    new_item_ = false;
    fill_fields(item);
    take_snapshot();
    update_commands();
}

void FoodInventory::show_nothing() {
    cancel_capture();
    hide_month_view();
    shown_item_ = 0;
    new_item_ = false;
    clear_fields();
    take_snapshot();
    update_commands();
}

void FoodInventory::initialize_inv() {
    show_nothing();
    rebuild_tree();
    select_key({});
    update_commands();
}

bool FoodInventory::has_edits() const {
    return new_item_ || (shown_item_ != 0 && field_texts() != shown_texts_);
}

bool FoodInventory::settle_edits() {
    if (!has_edits()) return true;
    const std::string name = typed_text(ui_->item_name->text().trimmed());
    const std::string what = new_item_ ? "Save the new item " : "Save the changes to ";
    const std::string shown_name = name.empty() ? "without a name" : "\"" + name + "\"";
    const Answer answer =
        boxes().message(what + shown_name + "?", Buttons::yes_no_cancel, "Item Inventory");
    if (answer == Answer::cancel) return false;
    if (answer == Answer::yes) {
        if (!store(new_item_)) return false;
        rebuild_tree();
        take_snapshot();
        return true;
    }
    show_item(new_item_ ? i16{0} : shown_item_);
    return true;
}

// --- commands --------------------------------------------------------------------------------

void FoodInventory::new_item() {
    trap_in_screen([this] { start_new_item(); });
}

// Asks first, so that a cancelled box leaves what was shown.
bool FoodInventory::start_new_item() {
    if (!settle_edits()) return false;
    const auto name = boxes().input("Please Enter New Item Name", "New Item", "");
    if (!name) return false;
    const i16 catagory = is_item_catagory(current_catagory) ? current_catagory : i16{1};
    show_nothing();
    select_key(QStringLiteral("r%1").arg(catagory));
    new_item_ = true;
    ui_->exp_date->setText(QStringLiteral("Exp Date"));
    ui_->lot_track->setText(QStringLiteral("Lot Track"));
    fill_catagories(catagory);
    ui_->item_name->setText(shown_text(trim(*name)));
    update_commands();
    (ui_->item_name->text().isEmpty() ? static_cast<QWidget*>(ui_->item_name) : ui_->quantity)
        ->setFocus(Qt::TabFocusReason);
    return true;
}

void FoodInventory::add_barcode(std::string_view barcode) {
    trap_in_screen([&] {
        if (start_new_item()) show_barcode(std::string(trim(barcode)));
    });
}

void FoodInventory::accept_item(bool is_new) {
    store(is_new);
    update_commands();
}

bool FoodInventory::store(bool is_new) {
    bool stored = false;
    trap_in_screen([&] {
        const ItemValues values = form_values();
        if (is_new) {
            shown_item_ = create_item_from_form(values);
        } else if (!update_item(shown_item_, values)) {
            return;
        }
        new_item_ = false;
        project_modified = i16_true;
        current_catagory = values.category;
        refresh_units();
        refresh_stores();
        take_snapshot();
        rebuild_tree();
        tell_other_screens();
        stored = true;
    });
    return stored;
}

void FoodInventory::tell_other_screens() {
    if (items[shown_item_].on_shopping_list == 0) {
        update_shopping_flag(shown_item_);
        if (ports::ShoppingList* list_to_buy = shopping_list()) {
            list_to_buy->populate_list();
            list_to_buy->populate_list2();
        }
    }
    if (ports::CS1504GETUPC* list = scan_list()) {
        list->refresh_item(barcode_, items[shown_item_].name.trimmed(), shown_item_);
    }
}

void FoodInventory::accept() {
    if (!has_item() || !store(new_item_)) return;
    if (ports::Reports* screen = reports()) {
        screen->search_engine();
        screen->populate_list();
    }
    view_item(shown_item_, i16_true);
}

void FoodInventory::new_category() {
    const auto name = boxes().input("Enter name of new catagory.", "New Catagory", "");
    if (!name || trim(*name).empty()) return;
    const i16 row = new_catagory(trim(*name), item_catagory_type, 0);
    project_modified = i16_true;
    if (has_item()) return;
    select_key(QStringLiteral("r%1").arg(row));
    current_catagory = row;
}

void FoodInventory::delete_food_item() {
    trap_in_screen([this] {
        if (new_item_) return;
        const i16 catagory = selected_catagory();
        if (shown_item_ == 0 && catagory == 0) return;
        const i16 gone = shown_item_ != 0 ? delete_item(shown_item_) : delete_catagory(catagory);
        if (gone == 0) return;
        project_modified = i16_true;
        // The user may have closed the replacement screen.
        if (shown_item_ != 0 && items[shown_item_].in_use == 1) return;
        initialize_inv();
    });
    update_commands();
}

void FoodInventory::copy_item_shown() {
    if (!settle_edits() || shown_item_ == 0) return;
    auto* dialog = new copydialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->set_index(shown_item_);
    connect(dialog, &QDialog::finished, this, [this] {
        copying_ = false;
        update_commands();
    });
    copying_ = true;
    dialog->open();
}

void FoodInventory::hide_screen() {
    if (new_item_) show_nothing();
    set_return(0);
    if (auto* child = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        child->hide();
    } else {
        hide();
    }
}

void FoodInventory::closeEvent(QCloseEvent* event) {
    bool may_close = false;
    trap_in_screen([&] { may_close = !busy_ && settle_edits(); });
    event->setAccepted(may_close);
}

}  // namespace tavernook
