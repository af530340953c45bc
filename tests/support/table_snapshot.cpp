#include "support/table_snapshot.h"

#include <vector>

#include "core/project_data.h"

namespace tavernook {

namespace {

struct Settings {
    i16 words[15] = {audit_hour,        audit_minute,     expiration_warning_days,
                     scanner_comm_port, scanner_reserved, ftp_send_after_audit,
                     audit_on_startup,  save_after_audit, scanner_type,
                     audit_days_ahead,  currency_symbol,  font_size,
                     show_toolbar_text, project_tag,      lot_table_top};
    f64 tax = sales_tax;
    Date created = project_created;
    FixedString<128> server = ftp_server;
    FixedString<64> account = ftp_account;
    FixedString<32> password = ftp_password;
    FixedString<128> directory = ftp_directory;
    std::array<i16, 11> reserved_words = project_reserved_words;
    i16 reserved = project_header.reserved;
    i16 version = file_version;
    bool operator==(const Settings&) const = default;
};

template <typename Record>
std::string first_difference(const char* table, const std::vector<Record>& a,
                             const std::vector<Record>& b) {
    if (a.size() != b.size()) return std::string(table) + " in size";
    for (std::size_t slot = 0; slot < a.size(); ++slot) {
        if (!(a[slot] == b[slot])) return std::string(table) + "[" + std::to_string(slot) + "]";
    }
    return {};
}

template <typename Source>
auto copy_of(const Source& table) {
    return std::vector(table.begin(), table.end());
}

std::vector<LotRecord> copy_of_lots() {
    std::vector<LotRecord> records;
    for (int item = 0; item < lots.entries(); ++item) records.push_back(lots[item]);
    return records;
}

}  // namespace

struct TableSnapshot::Copy {
    Settings settings;
    std::vector<ItemRecord> items_copy = copy_of(items);
    std::vector<ItemDetailRecord> details = copy_of(item_details);
    std::vector<LotRecord> lots_copy = copy_of_lots();
    std::vector<CatagoryRecord> catagories_copy = copy_of(catagories);
    std::vector<UnitRecord> units_copy = copy_of(units);
    std::vector<StoreRecord> stores_copy = copy_of(stores);
    std::vector<MealRecord> meals_copy = copy_of(meals);
    std::vector<f64> serving_sizes = copy_of(meal_serving_size);
    std::vector<std::string> documents = copy_of(meal_documents);
    std::vector<DayRecord> days_copy = copy_of(days);
    std::vector<DayQuantityRecord> quantities = copy_of(day_quantities);
    std::vector<WamRecord> wams_copy = copy_of(wams);
    std::vector<std::string> strings = copy_of(pooled_strings);
};

TableSnapshot::TableSnapshot() : copy_(std::make_unique<Copy>()) {}
TableSnapshot::~TableSnapshot() = default;

std::string TableSnapshot::difference(const TableSnapshot& other) const {
    const Copy& a = *copy_;
    const Copy& b = *other.copy_;
    if (!(a.settings == b.settings)) return "settings";
    for (const std::string& found :
         {first_difference("items", a.items_copy, b.items_copy),
          first_difference("item_details", a.details, b.details),
          first_difference("lots", a.lots_copy, b.lots_copy),
          first_difference("catagories", a.catagories_copy, b.catagories_copy),
          first_difference("units", a.units_copy, b.units_copy),
          first_difference("stores", a.stores_copy, b.stores_copy),
          first_difference("meals", a.meals_copy, b.meals_copy),
          first_difference("meal_serving_size", a.serving_sizes, b.serving_sizes),
          first_difference("meal_documents", a.documents, b.documents),
          first_difference("days", a.days_copy, b.days_copy),
          first_difference("day_quantities", a.quantities, b.quantities),
          first_difference("wams", a.wams_copy, b.wams_copy),
          first_difference("pooled_strings", a.strings, b.strings)}) {
        if (!found.empty()) return found;
    }
    return {};
}

}  // namespace tavernook
