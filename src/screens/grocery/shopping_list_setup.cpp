// How the shopping list's screen is put together.
#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "core/trap.h"
#include "platform/platform.h"
#include "screens/grocery/ShoppingList.h"
#include "screens/grocery/shopping_rows_model.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/toolbar_parts.h"
#include "ui_ShoppingList.h"

namespace tavernook {

namespace {

constexpr int name_letters = 16;  // at least

QFont larger(QFont font, double times) {
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * times);
    return font;
}

}  // namespace

void ShoppingList::set_up_toolbar() {
    QToolBar& bar = *ui_->list_toolbar;
    const int line = fontMetrics().height();
    bar.setIconSize(QSize(line * 3 / 2, line * 3 / 2));
    bar.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    fill_toolbar(*this, bar,
                 {{1, "new_item"}, {2, "print"}, {3, "save"}, {4, "open"}, {5, "put_in_stock"}});
    auto* stock = qobject_cast<QToolButton*>(bar.widgetForAction(ui_->list_toolbar_5));
    stock->setAutoRaise(false);
    stock->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    stock->setFont(larger(stock->font(), 1.3));
}

void ShoppingList::set_up_list() {
    QTreeView& list = *ui_->shopping_list;
    dress_list(list);
    list.setModel(rows_);
    recall_sort();
    list.setDropIndicatorShown(false);
    follow_font_size(list);
    QHeaderView* header = list.header();
    header->setSectionsMovable(false);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    const int letters[] = {name_letters, 19, 15, 5, 10, 10, 12, 10};
    for (int column = 0; column < rows_->columnCount(); ++column) {
        header->resizeSection(column, letters_wide(*this, letters[column]));
    }
    hint_when_empty(list, tr("Nothing to buy. Items that run low come here by themselves; add "
                             "others from the Quick Pick List."));
    ui_->main_splitter->setSizes({820, 220});
    ui_->main_splitter->setStretchFactor(0, 1);
    ui_->main_splitter->setStretchFactor(1, 0);
}

// The names get the room that the other columns leave.
void ShoppingList::fit_names() {
    const QTreeView& list = *ui_->shopping_list;
    const int others = list.header()->length() - list.columnWidth(0);
    const int room = list.viewport()->width() - others;
    list.header()->resizeSection(0, std::max(room, letters_wide(*this, name_letters)));
}

// A column is shown or not by the header alone, which the screen's memory keeps.
void ShoppingList::set_up_columns() {
    int column = 1;
    for (QAction* action : ui_->viewmenu->actions()) {
        action->setCheckable(true);
        action->setChecked(true);
        connect(action, &QAction::toggled, this,
                [this, column](bool shown) { switch_column(column, shown); });
        ++column;
    }
    connect(ui_->columns_button, &QPushButton::clicked, this, [this] {
        const QWidget& button = *ui_->columns_button;
        ui_->viewmenu->popup(button.mapToGlobal(QPoint(0, button.height())));
    });
    QHeaderView* header = ui_->shopping_list->header();
    connect(header, &QHeaderView::sortIndicatorChanged, this, &ShoppingList::store_sort);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint& at) { ui_->viewmenu->popup(header->mapToGlobal(at)); });
}

void ShoppingList::set_up_pick_list() {
    QTreeView& list = *ui_->quick_pick_list;
    dress_list(list);
    list.setModel(picks_);
    list.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list.setMouseTracking(true);
    follow_font_size(list);
    connect(&list, &QTreeView::activated, this, &ShoppingList::add_picked);
    connect(&list, &QTreeView::entered, this, &ShoppingList::show_pick_tip);
    connect(&list, &QTreeView::viewportEntered, this, [this] { show_pick_tip({}); });
    connect(ui_->find_box, &QLineEdit::textChanged, this, [this] {
        populate_list2();
        const bool narrowed = !ui_->find_box->text().isEmpty();
        ui_->quick_pick_list->setCurrentIndex(narrowed ? picks_->index(0, 0) : QModelIndex());
    });
    ui_->find_box->setMinimumWidth(letters_wide(*this, 14));
}

void ShoppingList::set_up_footer() {
    for (QLabel* label : {ui_->count_label, ui_->tax_label, ui_->total_label}) {
        label->setTextFormat(Qt::PlainText);
    }
    ui_->tax_label->setAccessibleName(ui_->tax_caption->text());
    ui_->total_label->setAccessibleName(ui_->total_caption->text());
    ui_->total_label->setFont(larger(ui_->total_label->font(), 1.6));
}

void ShoppingList::set_up_scanning() {
    ui_->Text1->set_collector(*ui_->Text2);
    ui_->Text1->setMinimumWidth(letters_wide(*this, 16));
    connect(ui_->Text1, &ScanEntry::scanned, this, &ShoppingList::take_code);
    connect(ui_->Text1, &ScanEntry::unreadable, this, [] {
        main_window().set_status(message_panel, "No barcode could be read. Please scan again.");
    });
    follow_scanner();
}

void ShoppingList::set_up_keys() {
    QWidget& list = *ui_->shopping_list;
    on_keys(list, Qt::Key_F2, [this] { ui_->pop2_qty->trigger(); });
    on_keys(list, QKeySequence::Delete, [this] { ui_->pop2_remove->trigger(); });
    on_keys(list, Qt::Key_Insert, [this] { ui_->pop2_add->trigger(); });
    on_keys(list, QKeySequence(Qt::SHIFT | Qt::Key_F10), [this] { show_popup(); });
    on_keys(*this, QKeySequence::Find, [this] {
        ui_->find_box->setFocus(Qt::ShortcutFocusReason);
        ui_->find_box->selectAll();
    });
    on_keys(*this, QKeySequence::Refresh, [this] {
        populate_list();
        populate_list2();
    });
    on_keys(*this, Qt::Key_Escape, [this] { escape(); });
    for (QWidget* watched :
         std::initializer_list<QWidget*>{ui_->shopping_list, ui_->shopping_list->viewport(),
                                         ui_->quick_pick_list, ui_->find_box}) {
        watched->installEventFilter(this);
    }
    connect(qApp, &QApplication::focusChanged, this, &ShoppingList::follow_focus);
}

void ShoppingList::on_command(QAction* action, void (ShoppingList::*command)()) {
    connect(action, &QAction::triggered, this,
            [this, command] { trap_in_screen([&] { (this->*command)(); }); });
}

void ShoppingList::connect_commands() {
    on_command(ui_->list_toolbar_1, &ShoppingList::add_from_inventory);
    on_command(ui_->list_toolbar_5, &ShoppingList::put_in_stock);
    on_command(ui_->pop2_add, &ShoppingList::add_from_inventory);
    on_command(ui_->pop2_remove, &ShoppingList::remove_selected);
    on_command(ui_->pop2_qty, &ShoppingList::ask_quantity);
    on_command(ui_->pop2_so, &ShoppingList::ask_store_order);
    connect(ui_->close_button, &QPushButton::clicked, this, [this] { close_screen(*this); });
    connect(ui_->shopping_list, &QTreeView::customContextMenuRequested, this,
            &ShoppingList::show_popup);
    connect(ui_->shopping_list, &QTreeView::activated, this,
            [this] { trap_in_screen([this] { view_row(); }); });
    connect(ui_->shopping_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ShoppingList::follow_selection);
    connect(ui_->shopping_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ShoppingList::follow_selection);
    connect(rows_, &ShoppingRowsModel::dropped, this, &ShoppingList::take_drop);
}

}  // namespace tavernook
