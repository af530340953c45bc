#include "screens/parts/rows_in_view.h"

#include <QItemSelection>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <unordered_set>
#include <utility>

namespace tavernook {

namespace {

struct Place {
    std::unordered_set<RowId> selected;
    RowId current = no_row;
    int current_place = -1;
    int down = 0;
    int across = 0;
};

Place place_in(const QTreeView& view, const RowsModel& model) {
    const std::vector<RowId> selected = selected_rows(view, model);
    Place place;
    place.selected = {selected.begin(), selected.end()};
    place.current_place = view.currentIndex().row();
    place.current = model.row_at(place.current_place);
    place.down = view.verticalScrollBar()->value();
    place.across = view.horizontalScrollBar()->value();
    return place;
}

// In runs, as thousands of single rows would take long.
QItemSelection selection_of(const RowsModel& model, const std::unordered_set<RowId>& selected) {
    QItemSelection selection;
    if (selected.empty()) return selection;
    const int last_column = model.columnCount() - 1;
    int first = -1;
    for (int place = 0; place <= model.rowCount(); ++place) {
        const bool wanted = place < model.rowCount() && selected.contains(model.row_at(place));
        if (wanted && first < 0) first = place;
        if (wanted || first < 0) continue;
        selection.append(
            QItemSelectionRange(model.index(first, 0), model.index(place - 1, last_column)));
        first = -1;
    }
    return selection;
}

}  // namespace

bool refill_in_place(QTreeView& view, RowsModel& model, std::vector<RowId> rows) {
    const Place before = place_in(view, model);
    if (!model.set_rows(std::move(rows))) return false;
    QItemSelectionModel& marks = *view.selectionModel();
    marks.select(selection_of(model, before.selected), QItemSelectionModel::ClearAndSelect);
    const int found = model.place_of(before.current);
    const int place = found >= 0 ? found : std::min(before.current_place, model.rowCount() - 1);
    if (place >= 0) marks.setCurrentIndex(model.index(place, 0), QItemSelectionModel::NoUpdate);
    view.doItemsLayout();  // so that the scroll bars know their range
    view.verticalScrollBar()->setValue(before.down);
    view.horizontalScrollBar()->setValue(before.across);
    return true;
}

std::vector<RowId> selected_rows(const QTreeView& view, const RowsModel& model) {
    std::vector<RowId> found;
    for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
        for (int place = range.top(); place <= range.bottom(); ++place) {
            found.push_back(model.row_at(place));
        }
    }
    return found;
}

RowId current_row(const QTreeView& view, const RowsModel& model) {
    return model.row_at(view.currentIndex().row());
}

bool select_row(QTreeView& view, const RowsModel& model, RowId row) {
    const int place = model.place_of(row);
    if (place < 0) return false;
    view.setCurrentIndex(model.index(place, 0));
    view.scrollTo(model.index(place, 0));
    return true;
}

}  // namespace tavernook
