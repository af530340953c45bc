#include "inventory/lots.h"

#include <string>

#include "core/project_data.h"

namespace tavernook {

namespace {

std::string default_lot_name(int place) {
    return std::string("Lot ") + static_cast<char>('A' + place);
}

}  // namespace

void init_lot_record(i16 item) {
    lots.grow(item);
    LotRecord& record = lots[item];
    for (int place = 0; place < lot_places; ++place) {
        const auto index = static_cast<std::size_t>(place);
        record.creation_date[index] = 0;
        record.expiration_date[index] = 0;
        record.lot_name[index] = default_lot_name(place);
        record.lot_quantity[index] = 0;
    }
    record.active = i16_true;
    record.current_lot = 0;
}

void first_lot_from_item(i16 item) {
    init_lot_record(item);
    const ItemRecord& source = items[item];
    LotRecord& record = lots[item];
    record.creation_date[0] = source.last_restock_date;
    record.expiration_date[0] = source.last_restock_date + source.storage_time;
    record.lot_quantity[0] = source.quantity;
}

void first_lots_of_all_items() {
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use == 1 && item > lot_table_top) first_lot_from_item(item);
    }
}

}  // namespace tavernook
