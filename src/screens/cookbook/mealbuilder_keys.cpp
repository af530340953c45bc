// The keys of the recipe manager.
#include <QKeyEvent>

#include "screens/cookbook/Mealbuilder.h"
#include "screens/cookbook/recipe_tree_model.h"
#include "screens/parts/list_parts.h"
#include "screens/text/recipe_pane.h"
#include "ui_Mealbuilder.h"

namespace tavernook {

void Mealbuilder::set_up_keys() {
    on_keys(*this, QKeySequence::Refresh, [this] { ui_->Toolbar1_4->trigger(); });
    on_keys(*this, QKeySequence::Find, [this] { find(); });
    QTreeView& tree = *ui_->recipe_tree;
    on_keys(tree, QKeySequence::Delete, [this] { ui_->Toolbar1_3->trigger(); });
    on_keys(tree, Qt::Key_Insert, [this] {
        if (!is_naming()) ui_->Toolbar1_1->trigger();
    });
    on_keys(tree, Qt::Key_Slash, [this] { find(); });
    QTreeView& list = *ui_->ingredient_list;
    on_keys(list, Qt::Key_F2, [this] { ui_->change_quantity_button->click(); });
    on_keys(list, Qt::Key_Insert, [this] { ui_->add_ingredient_button->click(); });
    on_keys(list, QKeySequence::Delete, [this] {
        if (selected_item() != 0) ui_->remove_ingredient_button->click();
    });
    for (QWidget* watched :
         std::initializer_list<QWidget*>{ui_->filter, ui_->recipe_tree, ui_->serving_unit}) {
        watched->installEventFilter(this);
    }
}

// The keys that a name does not take come on to the tree.
bool Mealbuilder::is_naming() const {
    return ui_->recipe_tree->isPersistentEditorOpen(ui_->recipe_tree->currentIndex());
}

bool Mealbuilder::eventFilter(QObject* watched, QEvent* event) {
    // The wheel scrolls; it never changes a box that the pointer happens to pass.
    if (event->type() == QEvent::Wheel && watched == ui_->serving_unit) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (plain && watched == ui_->filter && filter_key(key.key())) return true;
    const QModelIndex index = ui_->recipe_tree->currentIndex();
    if (plain && enter && watched == ui_->recipe_tree && !is_naming()) {
        if (model_->recipe_at(index) != 0) {
            pane_->setFocus(Qt::TabFocusReason);
        } else {
            ui_->recipe_tree->setExpanded(index, !ui_->recipe_tree->isExpanded(index));
        }
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// What was opened last goes first.
void Mealbuilder::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !ui_->filter->text().isEmpty()) {
        ui_->filter->clear();
    } else if (event->key() == Qt::Key_Escape && return_mode_ != 0) {
        ui_->close_button->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace tavernook
