// The tree of the item screen: what it shows, what is marked in it, and its keys.
#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>

#include "core/catagories.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/table_copy.h"
#include "ui_FoodInventory.h"

namespace tavernook {

namespace {

constexpr int few_items = 200;  // so many are shown at once, categories open

void show_populate_error(const Fault& fault) {
    show_fault("ERROR Item Inventory.populate_tree.  ERR = " + std::to_string(fault.number) +
               " DESC = " + fault.description);
}

}  // namespace

void FoodInventory::set_up_columns() {
    QTreeView& tree = *ui_->item_tree;
    QHeaderView& header = *tree.header();
    header.setStretchLastSection(false);
    header.setSectionsClickable(true);
    header.setSortIndicatorShown(true);
    header.setSortIndicator(ItemTreeModel::name_column, Qt::AscendingOrder);
    header.setAccessibleName(tr("Columns of the items"));
    const QFontMetrics metrics = fontMetrics();
    tree.setColumnWidth(ItemTreeModel::stock_column, metrics.horizontalAdvance("000.00 bottle(s)"));
    tree.setColumnWidth(ItemTreeModel::attention_column,
                        metrics.horizontalAdvance("Expires soon") + metrics.height() * 3);
    connect(&header, &QHeaderView::sectionClicked, this, &FoodInventory::sort_tree);
    connect(&header, &QHeaderView::sortIndicatorChanged, this, &FoodInventory::sort_tree);
}

void FoodInventory::set_up_tree() {
    QTreeView& tree = *ui_->item_tree;
    tree.setModel(model_);
    set_up_columns();
    copy_rows_by_keys(tree);
    space_rows(tree);
    follow_font_size(tree);
    rename_ = new QAction(tr("Rename"), this);
    rename_->setObjectName(QStringLiteral("rename"));
    rename_->setShortcut(Qt::Key_F2);
    rename_->setShortcutContext(Qt::WidgetShortcut);
    tree.addAction(rename_);
    connect(rename_, &QAction::triggered, this, &FoodInventory::rename_selected);
    connect(
        model_, &ItemTreeModel::catagory_renamed, this, [this] { rebuild_tree(); },
        Qt::QueuedConnection);
    connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this,
            &FoodInventory::selection_changed);
    connect(&tree, &QTreeView::customContextMenuRequested, this, &FoodInventory::show_tree_menu);
    connect(&tree, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { note_expanded(index, true); });
    connect(&tree, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { note_expanded(index, false); });
    connect(ui_->filter, &QLineEdit::textChanged, this, &FoodInventory::narrow);
    setFocusProxy(&tree);
}

// --- what stands in it -----------------------------------------------------------------------

void FoodInventory::populate_tree() {
    ui_->toggle_view->setText(QStringLiteral("Normal"));
    rebuild_tree();
}

void FoodInventory::populate_Alpha() {
    ui_->toggle_view->setText(QStringLiteral("List"));
    rebuild_tree();
}

void FoodInventory::set_view(i16 view) {
    if (view == 0) {
        populate_tree();
    } else {
        populate_Alpha();
    }
}

// What is marked and open stays so.
void FoodInventory::rebuild_tree() {
    const bool flat = ui_->toggle_view->text() == QLatin1String("List");
    const QString marked = selected_key();
    const int scrolled = ui_->item_tree->verticalScrollBar()->value();
    trap(
        [&] {
            arranging_tree_ = true;
            model_->populate(flat ? ItemTreeModel::View::list : ItemTreeModel::View::tree);
        },
        show_populate_error);
    arranging_tree_ = false;
    restore_tree();
    select_key(marked);
    ui_->item_tree->verticalScrollBar()->setValue(scrolled);
    ui_->item_tree->setRootIsDecorated(!flat);
    ui_->expand_tree->setEnabled(!flat);
    ui_->collapse_tree->setEnabled(!flat);
    const QString other = flat ? tr("Shows all items as one list. Press to see the categories.")
                               : tr("Shows the categories. Press to see all items as one list.");
    ui_->toggle_view->setToolTip(other);
    ui_->toggle_view->setAccessibleName(tr("View: %1").arg(ui_->toggle_view->text()));
    if (has_item()) fill_catagories(static_cast<i16>(ui_->item_category->currentData().toInt()));
}

// Found items are seen at once; otherwise the categories stand as the user left them. At first
// they are open, unless there are many items.
void FoodInventory::restore_tree() {
    arranging_tree_ = true;
    if (turned_.isEmpty()) open_by_rule_ = model_->item_count() <= few_items;
    const bool open = open_by_rule_ || model_->is_filtered();
    if (open) ui_->item_tree->expandAll();
    for (const QString& key : turned_) {
        const QModelIndex index = model_->index_of(key);
        if (index.isValid() && !model_->is_filtered()) ui_->item_tree->setExpanded(index, !open);
    }
    arranging_tree_ = false;
    span_catagories();
    update_tree_hint();
}

// A category has nothing to show in the other columns.
void FoodInventory::span_catagories() {
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        const QModelIndex index = model_->index_of(QStringLiteral("r%1").arg(row));
        if (index.isValid()) {
            ui_->item_tree->setFirstColumnSpanned(index.row(), index.parent(), true);
        }
    }
}

void FoodInventory::note_expanded(const QModelIndex& index, bool expanded) {
    if (arranging_tree_ || model_->is_filtered()) return;
    const QString key = index.data(ItemTreeModel::key_role).toString();
    if (expanded == open_by_rule_) {
        turned_.remove(key);
    } else {
        turned_.insert(key);
    }
}

// It takes what the other columns leave, and never too little for a name.
void FoodInventory::fit_name_column() {
    const QTreeView& tree = *ui_->item_tree;
    const int others = tree.columnWidth(ItemTreeModel::stock_column) +
                       tree.columnWidth(ItemTreeModel::attention_column);
    const int least = fontMetrics().averageCharWidth() * 20;
    ui_->item_tree->setColumnWidth(ItemTreeModel::name_column,
                                   std::max(least, tree.viewport()->width() - others));
}

void FoodInventory::update_tree_hint() {
    const bool empty = model_->item_count() == 0;
    ui_->tree_hint->setVisible(empty);
    ui_->tree_hint->setText(model_->is_filtered()
                                ? tr("No item matches. Esc shows all items again.")
                                : tr("Press \"New Item\" to enter your first item."));
}

void FoodInventory::narrow(const QString& filter) {
    model_->set_filter(filter);
    restore_tree();
    select_key(shown_item_ != 0 ? QStringLiteral("c%1").arg(shown_item_) : QString());
    update_commands();
}

void FoodInventory::expand_all(bool expanded) {
    turned_.clear();
    open_by_rule_ = expanded;
    // Kept as an exception that is no row, so that the number of items has no say any more.
    turned_.insert(QStringLiteral("r0"));
    arranging_tree_ = true;
    if (expanded) {
        ui_->item_tree->expandAll();
    } else {
        ui_->item_tree->collapseAll();
    }
    arranging_tree_ = false;
}

void FoodInventory::sort_tree(int) {
    const QHeaderView& header = *ui_->item_tree->header();
    const QString marked = selected_key();
    model_->sort(header.sortIndicatorSection(), header.sortIndicatorOrder());
    restore_tree();
    select_key(marked);
}

// --- what is marked in it --------------------------------------------------------------------

QString FoodInventory::selected_key() const {
    return ui_->item_tree->currentIndex().data(ItemTreeModel::key_role).toString();
}

i16 FoodInventory::selected_catagory() const {
    return model_->catagory_at(ui_->item_tree->currentIndex());
}

// Marks the row without showing it; an empty key marks none.
void FoodInventory::select_key(const QString& key) {
    const bool before = arranging_tree_;
    arranging_tree_ = true;
    mark_row(*ui_->item_tree, key.isEmpty() ? QModelIndex() : model_->index_of(key));
    arranging_tree_ = before;
}

// A question waits until the key or the mouse button has done its work.
void FoodInventory::selection_changed() {
    if (arranging_tree_) return;
    if (has_edits()) {
        QMetaObject::invokeMethod(this, &FoodInventory::show_selected, Qt::QueuedConnection);
    } else {
        show_selected();
    }
}

void FoodInventory::show_selected() {
    const QString wanted = selected_key();
    const QString present = shown_item_ != 0 ? QStringLiteral("c%1").arg(shown_item_) : QString();
    if (busy_ || wanted.isEmpty() || (wanted == present && !new_item_)) return;
    busy_ = true;
    trap(
        [&] {
            if (!settle_edits()) return select_key(present);
            select_key(wanted);
            const auto number = static_cast<i16>(wanted.mid(1).toInt());
            const bool item = wanted.startsWith(QLatin1Char('c'));
            current_catagory = item ? home_catagory(items[number].category) : number;
            show_item(item ? number : i16{0});
        },
        [](const Fault& fault) {
            show_fault("Error in item inventory mousedown: " + fault.description);
        });
    busy_ = false;
    update_commands();
}

// An item is renamed in its field, so that it is accepted together with everything else.
void FoodInventory::rename_selected() {
    if (selected_catagory() != 0) {
        ui_->item_tree->edit(ui_->item_tree->currentIndex().siblingAtColumn(0));
    } else if (has_item()) {
        ui_->item_name->setFocus(Qt::ShortcutFocusReason);
        ui_->item_name->selectAll();
    }
}

void FoodInventory::show_tree_menu(const QPoint& place) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("tree_menu"));
    menu.addAction(ui_->item_toolbar_1_1);
    menu.addAction(ui_->item_toolbar_1_2);
    menu.addSeparator();
    menu.addAction(rename_);
    menu.addAction(ui_->item_toolbar_1_5);
    menu.addAction(ui_->item_toolbar_1_4);
    menu.addSeparator();
    QAction* expand = menu.addAction(ui_->expand_tree->text());
    connect(expand, &QAction::triggered, ui_->expand_tree, &QAbstractButton::click);
    QAction* collapse = menu.addAction(ui_->collapse_tree->text());
    connect(collapse, &QAction::triggered, ui_->collapse_tree, &QAbstractButton::click);
    for (QAction* action : {expand, collapse}) action->setEnabled(ui_->expand_tree->isEnabled());
    menu.exec(ui_->item_tree->viewport()->mapToGlobal(place));
}

}  // namespace tavernook
