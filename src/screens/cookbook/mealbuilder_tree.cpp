// The tree of the recipe manager: what stands in it, what is marked, and names.
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "recipes/recipe_names.h"
#include "screens/cookbook/Mealbuilder.h"
#include "screens/cookbook/recipe_tree_model.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/table_copy.h"
#include "ui_Mealbuilder.h"

namespace tavernook {

namespace {

QString key_of(const QModelIndex& index) {
    return index.data(RecipeTreeModel::key_role).toString();
}

QString text_of_key(std::string_view key) {
    return QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
}

}  // namespace

void Mealbuilder::set_up_tree() {
    QTreeView& tree = *ui_->recipe_tree;
    tree.setModel(model_);
    tree.setAutoExpandDelay(600);
    copy_rows_by_keys(tree);
    space_rows(tree);
    follow_font_size(tree);
    rename_ = new QAction(tr("Rename"), this);
    rename_->setObjectName(QStringLiteral("rename"));
    rename_->setShortcut(Qt::Key_F2);
    rename_->setShortcutContext(Qt::WidgetShortcut);
    tree.addAction(rename_);
    connect(rename_, &QAction::triggered, this, [this] { run([this] { rename_marked(); }); });
    // Later, as the view is still busy with its editor or with the drop.
    const auto rebuild = [this] {
        rebuild_tree();
        update_commands();
    };
    connect(model_, &RecipeTreeModel::renamed, this, rebuild, Qt::QueuedConnection);
    connect(model_, &RecipeTreeModel::recipe_moved, this, rebuild, Qt::QueuedConnection);
    // A box waits until the key or the mouse button has done its work.
    connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (arranging_tree_) return;
        update_commands();
        QMetaObject::invokeMethod(this, &Mealbuilder::show_selected, Qt::QueuedConnection);
    });
    connect(&tree, &QTreeView::customContextMenuRequested, this, &Mealbuilder::show_tree_menu);
    connect(&tree, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { note_expanded(index, true); });
    connect(&tree, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { note_expanded(index, false); });
    connect(ui_->filter, &QLineEdit::textChanged, this, &Mealbuilder::narrow);
    setFocusProxy(&tree);
}

// --- what stands in it -----------------------------------------------------------------------

void Mealbuilder::populate_tree() {
    trap_in_screen([this] { rebuild_tree(); });
    update_commands();
}

// What is marked and open stays so.
void Mealbuilder::rebuild_tree() {
    const QString marked = selected_key();
    const int scrolled = ui_->recipe_tree->verticalScrollBar()->value();
    model_->populate();
    expand_tree();
    select_key(marked);
    ui_->recipe_tree->verticalScrollBar()->setValue(scrolled);
}

// Found recipes are seen at once; otherwise the categories stand as the user left them.
void Mealbuilder::expand_tree() {
    arranging_tree_ = true;
    ui_->recipe_tree->expandAll();
    if (!model_->is_filtered()) {
        for (const QString& key : closed_) ui_->recipe_tree->collapse(model_->index_of(key));
    }
    arranging_tree_ = false;
    update_tree_hint();
}

void Mealbuilder::note_expanded(const QModelIndex& index, bool expanded) {
    if (arranging_tree_ || model_->is_filtered()) return;
    if (expanded) {
        closed_.remove(key_of(index));
    } else {
        closed_.insert(key_of(index));
    }
}

void Mealbuilder::update_tree_hint() {
    const bool empty = model_->recipe_count() == 0;
    ui_->tree_hint->setVisible(empty);
    ui_->tree_hint->setText(model_->is_filtered()
                                ? tr("No recipe matches. Esc shows all recipes again.")
                                : tr("Press \"New Recipe\" to write your first recipe."));
}

void Mealbuilder::narrow(const QString& filter) {
    const QString marked = has_recipe() ? QStringLiteral("%1c").arg(shown_) : selected_key();
    model_->set_filter(filter);
    expand_tree();
    select_key(marked);
    update_commands();
}

void Mealbuilder::find() {
    ui_->filter->setFocus(Qt::ShortcutFocusReason);
    ui_->filter->selectAll();
}

// The first recipe found comes on show by Enter; Down goes on in the tree.
bool Mealbuilder::filter_key(int key) {
    QTreeView& tree = *ui_->recipe_tree;
    if (key == Qt::Key_Escape) {
        ui_->filter->clear();
        tree.setFocus(Qt::OtherFocusReason);
        return true;
    }
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (key != Qt::Key_Down && !enter) return false;
    QModelIndex first = model_->index(0, 0);
    while (first.isValid() && model_->recipe_at(first) == 0) first = tree.indexBelow(first);
    tree.setFocus(Qt::OtherFocusReason);
    if (first.isValid() && (enter || !tree.currentIndex().isValid())) tree.setCurrentIndex(first);
    return true;
}

// The table has the record already; the tree only has to show it.
void Mealbuilder::add_node(std::string_view, std::string_view key, std::string_view) {
    trap_in_screen([&] {
        const QString wanted = text_of_key(key);
        rebuild_tree();
        if (!model_->index_of(wanted).isValid()) ui_->filter->clear();
        const QModelIndex index = model_->index_of(wanted);
        for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
            ui_->recipe_tree->expand(above);
        }
        ui_->recipe_tree->scrollTo(index);
    });
}

// --- what is marked in it --------------------------------------------------------------------

QString Mealbuilder::selected_key() const {
    return key_of(ui_->recipe_tree->currentIndex());
}

// A recipe stands for the category that it is in.
i16 Mealbuilder::selected_catagory() const {
    const QModelIndex marked = ui_->recipe_tree->currentIndex();
    const i16 recipe = model_->recipe_at(marked);
    return recipe != 0 ? home_recipe_catagory(recipe) : model_->catagory_at(marked);
}

void Mealbuilder::select_node(std::string_view key) {
    select_key(text_of_key(key));
    update_commands();
}

// Marks the row without showing it; an empty key marks none.
void Mealbuilder::select_key(const QString& key) {
    const bool before = arranging_tree_;
    arranging_tree_ = true;
    mark_row(*ui_->recipe_tree, key.isEmpty() ? QModelIndex() : model_->index_of(key));
    arranging_tree_ = before;
}

// A category is only marked; the recipe stays on show.
void Mealbuilder::show_selected() {
    const i16 recipe = model_->recipe_at(ui_->recipe_tree->currentIndex());
    if (recipe == 0 || (recipe == shown_ && holds_text())) return;
    run([&] { show_recipe(recipe); });
}

void Mealbuilder::rename_marked() {
    const QModelIndex marked = ui_->recipe_tree->currentIndex();
    if (model_->is_root(marked)) {
        boxes().message("Can't Change name of GENERAL Category");
    } else if (marked.isValid()) {
        ui_->recipe_tree->edit(marked);
    }
}

void Mealbuilder::show_tree_menu(const QPoint& place) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("tree_menu"));
    menu.addAction(ui_->Toolbar1_1);
    menu.addAction(ui_->Toolbar1_2);
    menu.addSeparator();
    menu.addAction(rename_);
    menu.addAction(ui_->Toolbar1_3);
    menu.addSeparator();
    menu.addAction(ui_->Toolbar1_5);
    menu.exec(ui_->recipe_tree->viewport()->mapToGlobal(place));
}

}  // namespace tavernook
