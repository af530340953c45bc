#include "shopping/list_rows.h"

#include "basics/number_text.h"
#include "core/item_progress.h"
#include "core/money_text.h"
#include "core/rows.h"

namespace tavernook {

Table<i16, item_capacity> list_items;
i16 list_count = 0;
i16 selected_list_item = 0;
std::string total_text;
std::string tax_text;

namespace {

bool is_listed(const ItemRecord& item) {
    return item.shopping_quantity != 0 && item.on_shopping_list != 0;
}

f64 sub_total(const ItemRecord& item) {
    return item.shopping_quantity * item.cost;
}

template <typename Name>
std::string text_of(const Name& name) {
    return std::string(name.right_trimmed());
}

void empty_list() {
    for (i16& item : list_items) item = 0;
    list_count = 0;
}

void write_totals(f64 net) {
    total_text = money_text((sales_tax / 100 + 1) * net, "##.00");
    tax_text = format_number(sales_tax, "%##.00");
}

}  // namespace

std::string column_title(ListColumn column) noexcept {
    static constexpr const char* titles[] = {"Item",     "Category",  "Store", "SO",
                                             "Quantity", "Cost/Unit", "Units", "Sub Total"};
    return titles[static_cast<std::size_t>(column)];
}

std::string cell_text(ListColumn column, i16 item) noexcept {
    const ItemRecord& record = row_or_none(items, item);
    switch (column) {
        case ListColumn::item:
            return text_of(record.name);
        case ListColumn::category:
            return text_of(row_or_none(catagories, record.category).name);
        case ListColumn::store:
            return text_of(row_or_none(stores, record.store).name);
        case ListColumn::store_order:
            return format_number(record.store_order, "00");
        case ListColumn::quantity:
            return format_number(record.shopping_quantity, "###.00");
        case ListColumn::cost:
            return money_text(record.cost, "#0.00");
        case ListColumn::units:
            return text_of(row_or_none(units, record.qty_units).name);
        case ListColumn::sub_total:
            return money_text(sub_total(record), "#0.00");
    }
    return {};
}

void collect_list_items() noexcept {
    empty_list();
    const ItemProgress progress("Building Shopping List", "Adding Items to list. Please Wait....");
    f64 net = 0;
    bool selection_is_shown = false;
    for (i16 item = 1; item <= item_capacity; ++item) {
        ItemProgress::at_item(item);
        if (!is_listed(items[item])) continue;
        list_items[++list_count] = item;
        net += sub_total(items[item]);
        selection_is_shown = selection_is_shown || item == selected_list_item;
    }
    if (!selection_is_shown) selected_list_item = 0;
    write_totals(net);
}

std::string tax_label() noexcept {
    return format_number(sales_tax, "#0.00#") + "%";
}

std::vector<i16> quick_pick_items() noexcept {
    std::vector<i16> found;
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use != 0) found.push_back(item);
    }
    return found;
}

std::string quick_pick_tip(i16 item) noexcept {
    const ItemRecord& record = row_or_none(items, item);
    return "Item Title = " + text_of(record.name) +
           " Current Qty = " + number_text(record.quantity) +
           " Replace Qty = " + number_text(record.restock_quantity);
}

std::string list_key(i16 item) noexcept {
    return std::to_string(item) + "t";
}

}  // namespace tavernook
