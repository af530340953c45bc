// The keys of the item screen.
#include <QFrame>
#include <QKeyEvent>
#include <QShortcut>
#include <QToolBar>
#include <algorithm>

#include "screens/pantry/FoodInventory.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/quantity_box.h"
#include "ui_FoodInventory.h"

namespace tavernook {

namespace {

bool is_plain(const QKeyEvent& event) {
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

}  // namespace

void FoodInventory::set_up_keys() {
    const auto shortcut = [this](const QKeySequence& keys, const char* name, auto command) {
        auto* made = new QShortcut(keys, this);
        made->setObjectName(QLatin1String(name));
        made->setContext(Qt::WidgetWithChildrenShortcut);
        connect(made, &QShortcut::activated, this, command);
    };
    const auto find = [this] {
        ui_->filter->setFocus(Qt::ShortcutFocusReason);
        ui_->filter->selectAll();
    };
    const auto accept = [this] { ui_->item_toolbar_2_1->trigger(); };
    shortcut(QKeySequence::Find, "find_keys", find);
    shortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), "accept_keys", accept);
    shortcut(QKeySequence(Qt::CTRL | Qt::Key_Enter), "accept_keypad", accept);
    shortcut(QKeySequence::Refresh, "refresh_keys", [this] {
        if (shown_item_ != 0 && !new_item_) view_item(shown_item_, 0);
        rebuild_tree();
    });
    for (QWidget* watched : std::initializer_list<QWidget*>{
             ui_->item_tree, ui_->item_tree->viewport(), ui_->filter, ui_->quantity_to_add,
             ui_->item_toolbar_2->widgetForAction(ui_->item_toolbar_2_1)}) {
        watched->installEventFilter(this);
    }
}

bool FoodInventory::tree_key(QKeyEvent& event) {
    // The keys that a name being typed does not take come on to the tree.
    const bool naming = ui_->item_tree->isPersistentEditorOpen(ui_->item_tree->currentIndex());
    if (naming || !is_plain(event)) return false;
    if (event.key() == Qt::Key_Slash) {
        ui_->filter->setFocus(Qt::ShortcutFocusReason);
        ui_->filter->selectAll();
    } else if (event.key() == Qt::Key_Delete) {
        ui_->item_toolbar_1_4->trigger();
    } else if (event.key() == Qt::Key_Insert) {
        ui_->item_toolbar_1_1->trigger();
    } else if (is_enter(event) && shown_item_ != 0) {
        QWidget* next = return_mode_ != 0 ? static_cast<QWidget*>(ui_->quantity_to_add)
                                          : static_cast<QWidget*>(ui_->item_name);
        next->setFocus(Qt::TabFocusReason);
    } else if (is_enter(event)) {
        const QModelIndex index = ui_->item_tree->currentIndex();
        ui_->item_tree->setExpanded(index, !ui_->item_tree->isExpanded(index));
    } else {
        return false;
    }
    return true;
}

// The first item found comes on show by Enter; Down goes on in the tree.
bool FoodInventory::filter_key(QKeyEvent& event) {
    if (!is_plain(event)) return false;
    if (event.key() == Qt::Key_Escape) {
        ui_->filter->clear();
        ui_->item_tree->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (event.key() != Qt::Key_Down && !is_enter(event)) return false;
    QModelIndex first = model_->index(0, 0);
    while (first.isValid() && model_->item_at(first) == 0) {
        first = ui_->item_tree->indexBelow(first);
    }
    ui_->item_tree->setFocus(Qt::OtherFocusReason);
    const bool marked = ui_->item_tree->currentIndex().isValid();
    if (first.isValid() && (is_enter(event) || !marked)) {
        ui_->item_tree->setCurrentIndex(first);
    }
    return true;
}

void FoodInventory::go_to_next_field(QWidget* field) {
    const std::vector<QWidget*> fields = fields_in_order();
    auto next = std::find(fields.begin(), fields.end(), field);
    if (next == fields.end()) return;
    while (++next != fields.end()) {
        const bool takes_text = qobject_cast<QAbstractButton*>(*next) == nullptr;
        if (takes_text && (*next)->isEnabled() && (*next)->isVisibleTo(this)) {
            return (*next)->setFocus(Qt::TabFocusReason);
        }
    }
    findChild<QWidget*>(QStringLiteral("item_toolbar_2_1_button"))->setFocus(Qt::TabFocusReason);
}

bool FoodInventory::eventFilter(QObject* watched, QEvent* event) {
    // The wheel scrolls the fields; it never changes one that the pointer happens to pass.
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched) != nullptr) {
        event->ignore();
        return true;
    }
    if (watched == ui_->item_tree->viewport() && event->type() == QEvent::Resize) {
        fit_name_column();
    }
    if (watched == ui_->Text13 && event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            QMetaObject::invokeMethod(this, &FoodInventory::cancel_capture, Qt::QueuedConnection);
        }
    }
    if (event->type() == QEvent::KeyPress &&
        key_pressed(watched, *static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// True when the key has done its work.
bool FoodInventory::key_pressed(QObject* watched, QKeyEvent& key) {
    if (watched == ui_->Text13) return capture_key(key);
    if (watched == ui_->item_tree) return tree_key(key);
    if (watched == ui_->filter) return filter_key(key);
    if (!is_plain(key) || !is_enter(key)) return false;
    if (watched == ui_->quantity_to_add) {
        ui_->add_item->click();
    } else if (watched->objectName() == QLatin1String("item_toolbar_2_1_button")) {
        ui_->item_toolbar_2_1->trigger();
    } else if (qobject_cast<QLineEdit*>(watched) != nullptr ||
               qobject_cast<QComboBox*>(watched) != nullptr) {
        go_to_next_field(static_cast<QWidget*>(watched));
    } else {
        return false;
    }
    return true;
}

// What was opened last goes first.
void FoodInventory::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && month_box_ != nullptr && month_box_->isVisible()) {
        hide_month_view();
        ui_->exp_date->setFocus(Qt::OtherFocusReason);
    } else if (event->key() == Qt::Key_Escape && !ui_->filter->text().isEmpty()) {
        ui_->filter->clear();
    } else if (event->key() == Qt::Key_Escape && return_mode_ != 0) {
        ui_->close_screen->click();
    } else if (event->key() == Qt::Key_Slash && is_plain(*event)) {
        ui_->filter->setFocus(Qt::ShortcutFocusReason);
        ui_->filter->selectAll();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace tavernook
