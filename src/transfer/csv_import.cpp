#include "transfer/csv_import.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_set>

#include "basics/code_page.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "basics/typed_numbers.h"
#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "core/trap.h"
#include "inventory/item_slots.h"
#include "inventory/items.h"
#include "platform/platform.h"
#include "transfer/csv_lines.h"
#include "transfer/exchange_status.h"
#include "transfer/exchange_words.h"
#include "transfer/import_tally.h"

namespace tavernook {

namespace {

constexpr i64 longest_file = 64 * 1024 * 1024;  // bytes, of which memory holds two copies at most
constexpr int most_rows = 32767;                // that are looked at
constexpr std::string_view no_unit = "na";
constexpr i16 of_items = -1;

// Fields count from 1.
constexpr std::size_t first_nutrient = 19;

std::string quoted(std::string_view field) {
    constexpr std::size_t most_shown = 24;
    const bool is_long = field.size() > most_shown;
    return "\"" + std::string(field.substr(0, most_shown)) + (is_long ? "...\"" : "\"");
}

// --- one row ------------------------------------------------------------------------------------

// "5/11/2026", "2026-05-11", "11.05.2026", with or without a time behind; two digits of a year are
// of this century.
Date date_of(std::string_view field) {
    const std::string_view day = field.substr(0, field.find_first_of(" T"));
    const std::size_t mark = day.find_first_of("/-.");
    const std::size_t second = day.find(mark < day.size() ? day[mark] : '/', mark + 1);
    if (second >= day.size()) throw Fault(fault_number::type_mismatch);
    const std::string parts[] = {std::string(day.substr(0, mark)),
                                 std::string(day.substr(mark + 1, second - mark - 1)),
                                 std::string(day.substr(second + 1))};
    const auto as_date = [&](int month, int of_month, int year) {
        const std::string& digits = parts[year];
        return date_from_text(parts[month] + "/" + parts[of_month] + "/" +
                              (digits.size() == 2 ? "20" + digits : digits));
    };
    if (day[mark] == '-') return as_date(1, 2, 0);
    return day[mark] == '.' ? as_date(1, 0, 2) : as_date(0, 1, 2);
}

// Reads a row's fields and remembers the first that is not what it should be.
class FieldsOf {
  public:
    explicit FieldsOf(const CsvRow& row) : row_(row) {}

    std::string_view text(std::size_t field) const { return trim(row_.fields[field - 1]); }
    std::string_view text_or(std::size_t field, std::string_view when_empty) const {
        return text(field).empty() ? when_empty : text(field);
    }

    f64 number(std::string_view field, const char* what) {
        const f64 number = leading_number(with_decimal_point(field));
        if (!std::isfinite(number)) object(what, field, "is too large");
        if (doubt_.empty() && !reads_as_number(field)) {
            doubt_ = told(what, field, "is read as ") + number_text(number);
        }
        return number;
    }
    f64 number(std::size_t field, const char* what) { return number(text(field), what); }

    i16 whole(std::size_t field, const char* what) {
        i16 whole = 0;
        const f64 exact = number(field, what);
        if (!tried([&] { whole = round_to_i16(exact); })) object(what, text(field), "is too large");
        return whole;
    }

    Date date(std::size_t field, const char* what) {
        Date date = date_alone(platform_clock().now());
        const std::string_view typed = text(field);
        if (typed.empty()) return date;
        if (!tried([&] { date = date_of(typed); })) object(what, typed, "is no date as 5/31/2026");
        return date;
    }

    // One currency sign in front is none of the number.
    f64 money(std::size_t field, const char* what) {
        std::string_view amount = text(field);
        const std::string_view numeric = "0123456789+-.,";
        if (!amount.empty() && numeric.find(amount[0]) == std::string_view::npos) {
            amount.remove_prefix(1);
        }
        return number(amount, what);
    }

    // Empty where all is well.
    const std::string& objection() const { return objection_; }

    // The first number of which only the beginning counts.
    const std::string& doubt() const { return doubt_; }

  private:
    static std::string told(const char* what, std::string_view field, const char* why) {
        return std::string("the ") + what + " " + quoted(field) + " " + why;
    }
    void object(const char* what, std::string_view field, const char* why) {
        if (objection_.empty()) objection_ = told(what, field, why);
    }

    const CsvRow& row_;
    std::string objection_;
    std::string doubt_;
};

// Everything but units, store, texts and category, which depend on the project.
ItemValues values_of(FieldsOf& fields) {
    ItemValues values;
    values.name = fields.text(1);
    values.quantity = number_text(fields.number(6, "quantity"));
    values.storage_time = fields.whole(8, "storage time");
    values.last_restock_date = fields.date(9, "date of the last restock");
    values.stock_quantity = fields.number(10, "stock quantity");
    values.restock_quantity = fields.number(11, "restock quantity");
    values.barcode = fields.text_or(12, no_barcode);
    values.cost = fields.money(13, "cost");
    values.store_order = fields.whole(15, "store order");
    values.serving_size = fields.number(16, "serving size");
    values.servings_per_qty_unit = fields.number(18, "number of servings");
    for (std::size_t nutrient = 0; nutrient < nutrient_count; ++nutrient) {
        values.nutrients[nutrient].value =
            fields.number(first_nutrient + 2 * nutrient, "nutrition value");
    }
    return values;
}

// Why the row is none of the 38 columns at all; empty when it may be one.
std::string_view wrong_columns(const CsvRow& row) {
    const auto has_many = [&](char mark) {
        return std::count(row.text.begin(), row.text.end(), mark) + 1 >= std::ssize(row.fields);
    };
    if (row.count >= csv_fields) return {};
    if (row.is_open) return "a quote begins a column and none ends it";
    if (has_many(';')) return "its columns are separated by semicolons; they must be by commas";
    if (has_many('\t')) return "its columns are separated by tabs; they must be by commas";
    return row.count == 1 ? "it has one column of the 38" : "";
}

// --- what the project has room for --------------------------------------------------------------

// Names of a table of units or stores, as items may use them: those of the table, and new ones as
// long as it has free rows in front of the last two, which no name is looked for in.
template <typename Rows>
class NamesWithRoom {
  public:
    explicit NamesWithRoom(const Rows& table) {
        for (i16 row = 1; row < Rows::capacity - 1; ++row) {
            if (table[row].in_use == 0) {
                ++free_;
            } else {
                known_.insert(lower_case(table[row].name.trimmed()));
            }
        }
    }

    // Cut as the table cuts it; blank where it has no room, which is counted.
    std::string usable(std::string_view name, int& lost) {
        const std::string_view cut = trim(trim(name).substr(0, name_length));
        if (cut.empty() || known_.contains(lower_case(cut))) return std::string(cut);
        if (free_ == 0) {
            ++lost;
            return {};
        }
        --free_;
        known_.insert(lower_case(cut));
        return std::string(cut);
    }

  private:
    static constexpr std::size_t name_length = decltype(UnitRecord::name)::size;

    std::unordered_set<std::string> known_;
    int free_ = 0;
};

// --- the import ---------------------------------------------------------------------------------

class CsvImport {
  public:
    explicit CsvImport(CsvLines& lines) : lines_(lines) {}

    void run(ExchangeStatus& status);

    // "foods.csv: 3 items and 1 new unit came in; 1 row was left out, line 5: ...".
    std::string outcome(const std::string& name) const;

  private:
    void take(const CsvRow& row);
    void leave_out(int line, std::string_view why);
    void doubt(int line, const std::string& why);
    void name_rows_and_texts(const FieldsOf& fields, ItemValues& values);
    std::string kept_text(std::string_view text);
    i16 catagory(std::string_view name);

    CsvLines& lines_;
    const ImportTally tally_;
    const OnlyAddingItems adding_;
    const IndexedStrings strings_;
    NamesWithRoom<decltype(units)> units_{units};
    NamesWithRoom<decltype(stores)> stores_{stores};
    int free_items_ = item_capacity - live_counts().items;
    int taken_ = 0;  // rows, also those left out
    int lost_names_ = 0;
    LeftOut left_out_;
    int doubts_ = 0;
    std::string first_doubt_;
};

void CsvImport::run(ExchangeStatus& status) {
    const int all = std::min(lines_.count(), most_rows);
    while (taken_ < all) {
        const std::optional<CsvRow> row = lines_.next();
        if (!row) break;
        if (row->is_blank()) continue;
        take(*row);
        status.step(++taken_, all);
    }
    const int unended = lines_.unended_line();
    if (unended == 0) return;
    leave_out(unended, "no line end is behind it");
    ++taken_;
}

void CsvImport::take(const CsvRow& row) {
    const std::string_view wrong = wrong_columns(row);
    if (!wrong.empty()) return leave_out(row.line, wrong);
    FieldsOf fields(row);
    ItemValues values = values_of(fields);
    if (!fields.objection().empty()) return leave_out(row.line, fields.objection());
    if (free_items_ == 0) return leave_out(row.line, "the inventory is full");
    if (!fields.doubt().empty()) doubt(row.line, fields.doubt());
    name_rows_and_texts(fields, values);
    const i16 item = create_item(values);
    --free_items_;
    log_exchange_line("Imported item: " + std::string(items[item].name.trimmed()));
}

void CsvImport::leave_out(int line, std::string_view why) {
    const std::string place = "line " + std::to_string(line);
    left_out_.add(place, why);
    log_exchange_line("Left out " + place + ": " + std::string(why));
}

void CsvImport::doubt(int line, const std::string& why) {
    const std::string told = "line " + std::to_string(line) + ": " + why;
    if (doubts_++ == 0) first_doubt_ = told;
    log_exchange_line("In " + told);
}

void CsvImport::name_rows_and_texts(const FieldsOf& fields, ItemValues& values) {
    const auto unit = [&](std::size_t field) {
        return units_.usable(fields.text_or(field, no_unit), lost_names_);
    };
    values.qty_units = unit(7);
    values.store = stores_.usable(fields.text(14), lost_names_);
    values.serving_size_units = unit(17);
    for (std::size_t nutrient = 0; nutrient < nutrient_count; ++nutrient) {
        values.nutrients[nutrient].unit = unit(first_nutrient + 1 + 2 * nutrient);
    }
    values.manufacturer = kept_text(fields.text(2));
    values.brand = kept_text(fields.text(3));
    values.description = kept_text(fields.text(4));
    values.notes = kept_text(fields.text(5));
    values.category = catagory(fields.text(37));
    values.locations = kept_text(fields.text(38));
}

// Into the pool already, so that the row's next text knows what room is left.
std::string CsvImport::kept_text(std::string_view text) {
    if (!has_room_for_string(text)) {
        ++lost_names_;
        return {};
    }
    add_string(text);
    return std::string(text);
}

// The last row is never found, only taken.
i16 CsvImport::catagory(std::string_view name) {
    const std::string_view wanted = trim(name.substr(0, decltype(CatagoryRecord::name)::size));
    if (wanted.empty()) return 1;
    const auto bears_it = [wanted](i16 row) {
        return is_item_catagory(row) && catagories[row].name.trimmed() == wanted;
    };
    for (i16 row = 1; row < catagory_capacity; ++row) {
        if (bears_it(row)) return row;
    }
    if (catagories[find_free_catagory()].in_use == 0) return new_catagory(wanted, of_items, 0);
    if (bears_it(catagory_capacity)) return catagory_capacity;
    ++lost_names_;
    return 1;
}

// Rows behind those that the first line counts.
int rows_not_read(CsvLines& lines) {
    int rows = 0;
    while (const auto row = lines.next()) rows += row->is_blank() ? 0 : 1;
    return rows;
}

std::string CsvImport::outcome(const std::string& name) const {
    if (lines_.count() == 0) {
        return name +
               ": nothing came in.  Its first line must be the number of items, its second the "
               "headings; the items begin in the third.";
    }
    std::string told = name + ": " + tally_.words() + " came in" + left_out_.words();
    if (lost_names_ > 0) {
        told += "; " + counted(lost_names_, "name or text", "names and texts") +
                " found no room in the project";
    }
    if (doubts_ > 0) {
        told += "; " + counted(doubts_, "row has a number", "rows have numbers") +
                " that could not be read whole, " + (doubts_ > 1 ? "the first in " : "in ") +
                first_doubt_;
    }
    if (taken_ < std::min(lines_.count(), most_rows)) {
        told += "; the first line says " + std::to_string(lines_.count()) + ", but " +
                counted(taken_, "row was", "rows were") + " found";
    }
    const int more = rows_not_read(lines_);
    if (more > 0) {
        told += "; " + counted(more, "more row was", "more rows were") + " not read";
        if (lines_.count() <= most_rows) {
            told += ", as the first line says " + std::to_string(lines_.count());
        }
    }
    return told + ".";
}

std::string text_of_file(const std::string& path) {
    const auto file = files().open(path, OpenMode::read);
    if (file->length() > longest_file) throw Fault(fault_number::out_of_memory);
    std::string bytes(static_cast<std::size_t>(file->length()), '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return csv_text(std::move(bytes));
}

std::string bring_in(const std::string& path, ExchangeStatus& status) {
    project_modified = i16_true;
    log_exchange_line("Starting Import of file: " + text_from_utf8(path));
    const std::string text = text_of_file(path);
    CsvLines lines(text);
    log_exchange_line("Importing " + std::to_string(lines.count()) + " items.");
    CsvImport import(lines);
    import.run(status);
    log_exchange_line("Refreshing Inventory");
    if (ports::FoodInventory* screen = food_inventory()) screen->populate_tree();
    log_exchange_line("Import Completed Successfully on " + date_text(platform_clock().now()));
    return import.outcome(shown_file_name(path));
}

}  // namespace

void import_csv(const std::string& path) noexcept {
    run_import(path, [&](ExchangeStatus& status) { return bring_in(path, status); });
}

}  // namespace tavernook
