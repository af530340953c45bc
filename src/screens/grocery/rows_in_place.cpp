#include "screens/grocery/rows_in_place.h"

#include <QItemSelection>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>

#include "screens/grocery/shopping_rows_model.h"

namespace tavernook {

namespace {

struct Place {
    std::vector<bool> selected;  // by item
    i16 current = 0;
    int current_row = -1;
    int down = 0;
    int across = 0;
};

Place place_in(const QTreeView& view, const ShoppingRowsModel& model) {
    Place place;
    place.selected.resize(static_cast<std::size_t>(item_capacity) + 1);
    for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            place.selected[static_cast<std::size_t>(model.item_at(row))] = true;
        }
    }
    place.current_row = view.currentIndex().row();
    place.current = model.item_at(place.current_row);
    place.down = view.verticalScrollBar()->value();
    place.across = view.horizontalScrollBar()->value();
    return place;
}

// In runs, as thousands of single rows would take long.
QItemSelection selection_of(const ShoppingRowsModel& model, const std::vector<bool>& selected) {
    QItemSelection selection;
    const int last_column = model.columnCount() - 1;
    int first = -1;
    for (int row = 0; row <= model.rowCount(); ++row) {
        const bool wanted =
            row < model.rowCount() && selected[static_cast<std::size_t>(model.item_at(row))];
        if (wanted && first < 0) first = row;
        if (wanted || first < 0) continue;
        selection.append(
            QItemSelectionRange(model.index(first, 0), model.index(row - 1, last_column)));
        first = -1;
    }
    return selection;
}

}  // namespace

void refill_in_place(QTreeView& view, ShoppingRowsModel& model, const std::vector<i16>& items) {
    const Place place = place_in(view, model);
    if (!model.set_items(items)) return;
    QItemSelectionModel& marks = *view.selectionModel();
    marks.select(selection_of(model, place.selected), QItemSelectionModel::ClearAndSelect);
    const int found = model.row_of(place.current);
    const int row = found >= 0 ? found : std::min(place.current_row, model.rowCount() - 1);
    if (row >= 0) marks.setCurrentIndex(model.index(row, 0), QItemSelectionModel::NoUpdate);
    view.doItemsLayout();  // so that the scroll bars know their range
    view.verticalScrollBar()->setValue(place.down);
    view.horizontalScrollBar()->setValue(place.across);
}

}  // namespace tavernook
