// The fields of each record in the order of the project file, told once for reading and writing:
// `code` is a FieldReader or a FieldWriter, the record const or not.
#pragma once

#include <array>
#include <type_traits>

#include "basics/byte_codec.h"
#include "core/project_data.h"

namespace tavernook::project_file {

class FieldWriter {
  public:
    explicit FieldWriter(ByteWriter& bytes) : bytes_(bytes) {}

    void operator()(const i16& value) { bytes_.write_i16(value); }
    void operator()(const i32& value) { bytes_.write_i32(value); }
    void operator()(const f64& value) { bytes_.write_f64(value); }
    template <std::size_t N>
    void operator()(const FixedString<N>& text) {
        bytes_.write_fixed(text);
    }
    template <typename Field, std::size_t N>
    void operator()(const std::array<Field, N>& fields) {
        for (const Field& field : fields) (*this)(field);
    }
    template <std::size_t N>
    void operator()(const std::array<f64, N>& numbers) {
        bytes_.write_f64s(numbers);
    }
    void unused(std::size_t count) { bytes_.write_zeros(count); }

  private:
    ByteWriter& bytes_;
};

class FieldReader {
  public:
    explicit FieldReader(ByteReader& bytes) : bytes_(bytes) {}

    void operator()(i16& value) { value = bytes_.read_i16(); }
    void operator()(i32& value) { value = bytes_.read_i32(); }
    void operator()(f64& value) { value = bytes_.read_f64(); }
    template <std::size_t N>
    void operator()(FixedString<N>& text) {
        bytes_.read_fixed(text);
    }
    template <typename Field, std::size_t N>
    void operator()(std::array<Field, N>& fields) {
        for (Field& field : fields) (*this)(field);
    }
    template <std::size_t N>
    void operator()(std::array<f64, N>& numbers) {
        bytes_.read_f64s(numbers);
    }
    void unused(std::size_t count) { bytes_.skip(count); }

  private:
    ByteReader& bytes_;
};

// True for `const Record` and `Record` alike, so that one list serves both directions.
template <typename Given, typename Record>
concept IsRecord = std::is_same_v<std::remove_const_t<Given>, Record>;

template <typename Coder, IsRecord<ItemRecord> Item>
void fields(Coder& code, Item& item) {
    code(item.category);
    code(item.name);
    code(item.quantity);
    code(item.stock_quantity);
    code(item.qty_units);
    code(item.storage_time);
    code(item.restock_quantity);
    code(item.cost);
    code(item.store);
    code(item.locations);
    code(item.fat);
    code(item.calories);
    code(item.serving_size);
    code(item.servings_per_qty_unit);
    code(item.serving_size_units);
    code(item.in_use);
    code(item.last_restock_date);
    code(item.store_order);
    code(item.on_shopping_list);
    code(item.shopping_quantity);
    code(item.barcode);
}

template <typename Coder, IsRecord<ItemDetailRecord> Detail>
void fields(Coder& code, Detail& detail) {
    code(detail.manufacturer);
    code(detail.brand);
    code(detail.description);
    code(detail.notes);
    code(detail.created_date);
    code(detail.fat);
    code(detail.fat_units);
    code(detail.calories);
    code(detail.calories_units);
    code(detail.cholestorol);
    code(detail.cholestorol_units);
    code(detail.sodium);
    code(detail.sodium_units);
    code(detail.potassium);
    code(detail.potassium_units);
    code(detail.carbohydrates);
    code(detail.carbohydrates_units);
    code(detail.fiber);
    code(detail.fiber_units);
    code(detail.sugars);
    code(detail.sugars_units);
    code(detail.protien);
    code(detail.protien_units);
}

template <typename Coder, IsRecord<LotRecord> Lot>
void fields(Coder& code, Lot& lot) {
    code(lot.active);
    code(lot.lot_name);
    code(lot.creation_date);
    code(lot.expiration_date);
    code(lot.lot_quantity);
    code(lot.current_lot);
}

template <typename Coder, IsRecord<CatagoryRecord> Catagory>
void fields(Coder& code, Catagory& catagory) {
    code(catagory.name);
    code(catagory.in_use);
    code(catagory.type);
    code(catagory.parent);
}

template <typename Coder, typename Row>
requires IsRecord<Row, UnitRecord> || IsRecord<Row, StoreRecord>
void fields(Coder& code, Row& row) {
    code(row.name);
    code(row.in_use);
}

template <typename Coder, IsRecord<MealRecord> Meal>
void fields(Coder& code, Meal& meal) {
    code(meal.name);
    code(meal.ingredient_item);
    code(meal.ingredient_qty);
    code(meal.in_use);
    code(meal.category);
    code(meal.serving_size_units);
}

template <typename Coder, IsRecord<DayRecord> Day>
void fields(Coder& code, Day& day) {
    code(day.month);
    code(day.year);
    code(day.day);
    code(day.planned_meal);
    code(day.planned_item);
    code(day.in_use);
    code(day.audited);
}

template <typename Coder, IsRecord<DayQuantityRecord> Quantities>
void fields(Coder& code, Quantities& quantities) {
    code(quantities.meal_servings);
    code(quantities.item_quantity);
}

template <typename Coder, IsRecord<ProjectHeader> Header>
void fields(Coder& code, Header& header) {
    for (auto* section : {&header.items, &header.catagories, &header.meals, &header.units,
                          &header.stores, &header.days}) {
        code(section->count);
        code(section->position);
    }
    code(header.reserved);
    code(header.setup_position);
    code(header.documents_position);
    code(header.file_version);
}

// The four positions that the setup block holds; not above 0 = the block is absent.
struct BlockPositions {
    i32 item_details = 0;
    i32 strings = 0;
    i32 day_quantities = 0;
    i32 meal_servings = 0;
};

// The setup block. Its fields are the project settings themselves.
template <typename Coder, IsRecord<BlockPositions> Positions>
void setup_fields(Coder& code, Positions& positions) {
    code(audit_hour);
    code(audit_minute);
    code(expiration_warning_days);
    code(sales_tax);
    code(scanner_comm_port);
    code(scanner_reserved);
    code(ftp_send_after_audit);
    code(audit_on_startup);
    code(save_after_audit);
    code(scanner_type);
    code.unused(2);
    code(project_created);
    code.unused(2);
    code(ftp_server);
    code.unused(4);
    code(ftp_account);
    code.unused(6);
    code(ftp_password);
    code.unused(8);
    code(ftp_directory);
    code.unused(2);
    code(positions.item_details);
    code.unused(2);
    code(positions.strings);
    code.unused(2);
    code(positions.day_quantities);
    code.unused(2);
    code(positions.meal_servings);
    code.unused(2);
    code(audit_days_ahead);
    code.unused(4);
    code(currency_symbol);
    code.unused(2);
    code(font_size);
}

}  // namespace tavernook::project_file
