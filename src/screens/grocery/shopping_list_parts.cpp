// Columns, sort, picking and scanning on the shopping list's screen.
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QStringList>
#include <algorithm>

#include "barcodes/scanned_code.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "screens/grocery/ShoppingList.h"
#include "screens/grocery/rows_in_place.h"
#include "screens/grocery/shopping_rows_model.h"
#include "screens/parts/catagory_places.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "ui_ShoppingList.h"

namespace tavernook {

namespace {

constexpr const char* section = "Screens";
constexpr const char* sort_key = "ShoppingList.Sort";

// "3,4-": by column 3, on top of it by column 4 downwards.
std::string text_of(const std::vector<ShoppingRowsModel::SortStep>& steps) {
    QStringList parts;
    for (const auto& [column, order] : steps) {
        parts << QString::number(column) + QLatin1String(order == Qt::DescendingOrder ? "-" : "");
    }
    return parts.join(QLatin1Char(',')).toStdString();
}

std::vector<ShoppingRowsModel::SortStep> steps_of(const std::string& text) {
    std::vector<ShoppingRowsModel::SortStep> steps;
    for (QString part : QString::fromStdString(text).split(',', Qt::SkipEmptyParts)) {
        const bool down = part.endsWith(QLatin1Char('-'));
        if (down) part.chop(1);
        bool is_number = false;
        const int column = part.toInt(&is_number);
        if (!is_number || static_cast<std::size_t>(column) >= list_columns.size()) continue;
        steps.push_back({column, down ? Qt::DescendingOrder : Qt::AscendingOrder});
    }
    if (steps.size() > list_columns.size()) steps.resize(list_columns.size());
    return steps;
}

bool is_plain(const QKeyEvent& key) {
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

}  // namespace

// --- columns and sort ------------------------------------------------------------------------

void ShoppingList::switch_column(int column, bool shown) {
    QHeaderView* header = ui_->shopping_list->header();
    if (header->isSectionHidden(column) != shown) return;
    header->setSectionHidden(column, !shown);
    fit_names();
    populate_list();
}

// The checks follow what the screen's memory has brought back; the names are never hidden.
void ShoppingList::follow_header() {
    QHeaderView* header = ui_->shopping_list->header();
    header->setSectionHidden(0, false);
    int column = 1;
    for (QAction* action : ui_->viewmenu->actions()) {
        action->setChecked(!header->isSectionHidden(column));
        ++column;
    }
    fit_names();
}

// Before the header's own memory, which brings back the latest sort alone.
void ShoppingList::recall_sort() {
    const auto recall = [this] {
        const auto steps = steps_of(settings_store().get(section, sort_key));
        if (steps.empty()) return;
        rows_->set_sort_steps(steps);
        ui_->shopping_list->header()->setSortIndicator(steps.back().column, steps.back().order);
    };
    trap(recall, [](const Fault&) {});
}

void ShoppingList::store_sort() {
    trap([this] { settings_store().set(section, sort_key, text_of(rows_->sort_steps())); },
         [](const Fault&) {});
}

void ShoppingList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    follow_header();
    follow_scanner();
}

void ShoppingList::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isVisible()) follow_scanner();
}

// --- the quick pick list -----------------------------------------------------------------------

void ShoppingList::fill_list2() {
    const QStringList words =
        folded(ui_->find_box->text()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    std::vector<i16> found = quick_pick_items();
    const bool any = !found.empty();
    std::erase_if(found, [&words](i16 item) {
        const QString name = folded(shown_text(items[item].name.trimmed()));
        return std::any_of(words.begin(), words.end(),
                           [&name](const QString& word) { return !name.contains(word); });
    });
    refill_in_place(*ui_->quick_pick_list, *picks_, found);
    hint_when_empty(*ui_->quick_pick_list, any ? tr("No item has this in its name.")
                                               : tr("No items yet. Press \"Add Items\"."));
}

void ShoppingList::add_picked() {
    trap_in_screen([this] {
        const QModelIndexList marked = ui_->quick_pick_list->selectionModel()->selectedRows();
        const i16 item = marked.isEmpty() ? i16{0} : picks_->item_at(marked.first().row());
        if (item == 0) return;
        if (items[item].in_use != 1) return populate_list2();
        add(item);
    });
}

// A name that looks like a page of the web is shown as it is.
void ShoppingList::show_pick_tip(const QModelIndex& index) {
    const i16 item = picks_->item_at(index.row());
    const QString tip = item == 0 ? QString() : shown_text(quick_pick_tip(item));
    ui_->quick_pick_list->setToolTip(Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip)
                                                              : tip);
}

// The keys of the find box: up and down mark what Enter adds. A code that a scanner has typed here
// is taken for one, as no name has it.
bool ShoppingList::find_key(QKeyEvent& key) {
    if (!is_plain(key)) return false;
    if (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down) {
        const int row = ui_->quick_pick_list->currentIndex().row();
        const int next = row + (key.key() == Qt::Key_Down ? 1 : -1);
        if (next >= 0 && next < picks_->rowCount()) {
            ui_->quick_pick_list->setCurrentIndex(picks_->index(next, 0));
        }
        return true;
    }
    const bool ends_code = is_enter(key) || key.key() == Qt::Key_Tab;
    const QString typed = ui_->find_box->text();
    if (ends_code && ScanEntry::is_typed_into() && picks_->rowCount() == 0 && !typed.isEmpty()) {
        ui_->find_box->clear();
        ui_->Text1->take_line(typed);
        return true;
    }
    if (!is_enter(key)) return false;
    add_picked();
    ui_->find_box->selectAll();
    return true;
}

// --- scanning ----------------------------------------------------------------------------------

void ShoppingList::follow_scanner() {
    ui_->Text1->follow_scanner_type();
}

// Codes are what the screen waits for where a scanner types them, names where there is none. No
// focus proxy, as the Tab key's round would begin again there and leave parts out.
void ShoppingList::focusInEvent(QFocusEvent* event) {
    QWidget* first = ui_->find_box;
    if (ScanEntry::is_typed_into()) first = ui_->Text1;
    first->setFocus(event->reason());
}

void ShoppingList::take_code(const std::string& code) {
    trap_in_screen([&] {
        const i16 item = find_scanned_item(code);
        if (item != 0) return add(item);
        main_window().set_status(message_panel, "No item has the barcode \"" + code +
                                                    "\". Nothing was added to the list.");
    });
}

bool ShoppingList::eventFilter(QObject* watched, QEvent* event) {
    const bool is_view = watched == ui_->shopping_list->viewport();
    if (is_view && event->type() == QEvent::Resize) fit_names();
    if (event->type() == QEvent::KeyPress) {
        auto& key = *static_cast<QKeyEvent*>(event);
        if (watched == ui_->find_box && find_key(key)) return true;
        if (watched != ui_->find_box && ui_->Text1->take_first_key(key)) return true;
    }
    return QWidget::eventFilter(watched, event);
}

// A scanner may type while a button has the focus.
void ShoppingList::keyPressEvent(QKeyEvent* event) {
    if (!ui_->Text1->take_first_key(*event)) QWidget::keyPressEvent(event);
}

}  // namespace tavernook
