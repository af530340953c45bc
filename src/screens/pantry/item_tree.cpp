#include "screens/pantry/item_tree.h"

#include <QObject>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/string_storage.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "screens/parts/drag_text.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/stock_sign.h"

namespace tavernook {

namespace {

constexpr i16 general = 1;

QString name_of(i16 item) {
    return shown_text(row_or_none(items, item).name.trimmed());
}

QString stock_text(i16 item) {
    const QString amount = shown_text(format_number(stock_of(item), "#####0.00"));
    const UnitRecord& unit = row_or_none(units, row_or_none(items, item).qty_units);
    return (amount + QLatin1Char(' ') + shown_text(unit.name.trimmed())).trimmed();
}

// What wants attention first.
LeafRank attention_rank(i16 item) {
    const QString words = stock_words(item);
    return {words.isEmpty() ? 1 : 0, words};
}

QString search_text(const ItemRecord& record, i16 item, const QString& folded_name) {
    QString text =
        folded_name + QLatin1Char('\n') + folded(shown_text(pooled_text(item_details[item].brand)));
    if (record.barcode != no_barcode) {
        text += QLatin1Char('\n') + folded(shown_text(record.barcode.trimmed()));
    }
    return text;
}

std::vector<TreeLeaf> read_items() {
    std::vector<TreeLeaf> leaves;
    for (i16 item = 1; item <= item_capacity; ++item) {
        ItemRecord& record = items[item];
        if (record.in_use != 1) continue;
        if (record.category == 0) {
            record.category = general;
            project_modified = i16_true;
        }
        ensure_lot_record(item);
        const QString name = folded(name_of(item));
        leaves.push_back(
            {item, home_catagory(record.category), name, search_text(record, item, name)});
    }
    return leaves;
}

}  // namespace

TreeContents item_tree_contents() {
    return {
        .is_shown = is_item_catagory,
        .read_leaves = read_items,
        .columns = {{.title = QObject::tr("Item"), .text = name_of},
                    {.title = QObject::tr("In Stock"),
                     .text = stock_text,
                     .rank = [](i16 item) { return LeafRank(stock_of(item), QString()); },
                     .is_right = true},
                    {.title = QObject::tr("Attention"),
                     .text = stock_words,
                     .sign = stock_sign_of,
                     .rank = attention_rank}},
        .drag_text = text_of_dragged_item,
        .rename_catagory = [](i16 row,
                              std::string_view name) { return rename_catagory(row, name); },
    };
}

}  // namespace tavernook
