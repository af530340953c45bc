#include "screens/parts/rows_in_view.h"

#include <QAbstractItemView>
#include <QItemSelection>
#include <QScrollBar>
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

using RowAt = std::function<RowId(int place)>;
using Wanted = std::function<bool(RowId)>;

Place place_in(const QAbstractItemView& view, const RowAt& row_at) {
    Place place;
    for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            place.selected.insert(row_at(row));
        }
    }
    place.selected.erase(no_row);
    place.current_place = view.currentIndex().row();
    place.current = row_at(place.current_place);
    place.down = view.verticalScrollBar()->value();
    place.across = view.horizontalScrollBar()->value();
    return place;
}

// In runs, as thousands of single rows would take long.
QItemSelection selection_of(const QAbstractItemModel& model, const RowAt& row_at,
                            const Wanted& is_wanted) {
    QItemSelection selection;
    const int last_column = model.columnCount() - 1;
    int first = -1;
    for (int place = 0; place <= model.rowCount(); ++place) {
        const bool wanted = place < model.rowCount() && is_wanted(row_at(place));
        if (wanted && first < 0) first = place;
        if (wanted || first < 0) continue;
        selection.append(
            QItemSelectionRange(model.index(first, 0), model.index(place - 1, last_column)));
        first = -1;
    }
    return selection;
}

int place_of(RowId row, int rows, const RowAt& row_at) {
    if (row == no_row) return -1;
    int place = 0;
    while (place < rows && row_at(place) != row) ++place;
    return place < rows ? place : -1;
}

}  // namespace

bool keep_place(QAbstractItemView& view, const RowAt& row_at, const std::function<bool()>& refill) {
    const Place before = place_in(view, row_at);
    const bool had_selection = view.selectionModel()->hasSelection();
    if (!refill()) return false;
    const QAbstractItemModel& model = *view.model();
    QItemSelectionModel& marks = *view.selectionModel();
    const QItemSelection kept =
        selection_of(model, row_at, [&](RowId row) { return before.selected.contains(row); });
    marks.select(kept, QItemSelectionModel::ClearAndSelect);
    // A selection that goes with its rows goes without a word.
    if (kept.isEmpty() && had_selection) Q_EMIT marks.selectionChanged({}, {});
    const int found = place_of(before.current, model.rowCount(), row_at);
    const int place = found >= 0 ? found : std::min(before.current_place, model.rowCount() - 1);
    if (place >= 0) marks.setCurrentIndex(model.index(place, 0), QItemSelectionModel::NoUpdate);
    view.doItemsLayout();  // so that the scroll bars know their range
    view.verticalScrollBar()->setValue(before.down);
    view.horizontalScrollBar()->setValue(before.across);
    return true;
}

bool refill_in_place(QAbstractItemView& view, RowsModel& model, std::vector<RowId> rows) {
    return keep_place(
        view, [&model](int place) { return model.row_at(place); },
        [&] { return model.set_rows(std::move(rows)); });
}

std::vector<RowId> selected_rows(const QAbstractItemView& view, const RowsModel& model) {
    std::vector<RowId> found;
    for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
        for (int place = range.top(); place <= range.bottom(); ++place) {
            found.push_back(model.row_at(place));
        }
    }
    return found;
}

void mark_rows(QAbstractItemView& view, const RowsModel& model, const Wanted& is_wanted) {
    const QItemSelection marked = selection_of(
        model, [&model](int place) { return model.row_at(place); }, is_wanted);
    view.selectionModel()->select(marked, QItemSelectionModel::Select);
}

RowId current_row(const QAbstractItemView& view, const RowsModel& model) {
    return model.row_at(view.currentIndex().row());
}

bool select_row(QAbstractItemView& view, const RowsModel& model, RowId row) {
    const int place = model.place_of(row);
    if (place < 0) return false;
    view.setCurrentIndex(model.index(place, 0));
    view.scrollTo(model.index(place, 0));
    return true;
}

}  // namespace tavernook
