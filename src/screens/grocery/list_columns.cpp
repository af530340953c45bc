#include "screens/grocery/list_columns.h"

#include <QObject>

#include "screens/parts/shown_text.h"
#include "screens/parts/stock_sign.h"
#include "shopping/list_rows.h"

namespace tavernook {

namespace {

bool is_amount(ListColumn column) {
    return column == ListColumn::store_order || column == ListColumn::quantity ||
           column == ListColumn::cost || column == ListColumn::sub_total;
}

QString attention_words(RowId row) {
    return stock_words(part_of(row, 0));
}

}  // namespace

std::vector<RowsColumn> shopping_list_columns() {
    std::vector<RowsColumn> made;
    for (const ListColumn column : list_columns) {
        made.push_back(
            {.title = shown_text(column_title(column)),
             .text = [column](RowId row) { return shown_text(cell_text(column, part_of(row, 0))); },
             .alignment = is_amount(column) ? on_the_right : on_the_left,
             .title_tip =
                 column == ListColumn::store_order ? QObject::tr("Store order") : QString()});
        if (column != ListColumn::quantity) continue;
        made.back().sign = [](RowId row) { return stock_sign_of(part_of(row, 0)); };
        made.back().tip = attention_words;
        made.back().description = attention_words;
    }
    return made;
}

}  // namespace tavernook
