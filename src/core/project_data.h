// Every fact of the open project: global tables and settings. They exist from the program's start
// to its end, whether or not a project is open. Records refer to each other by slot number.
#pragma once

#include <array>
#include <string>

#include "basics/table.h"
#include "core/lot_table.h"
#include "core/records.h"

namespace tavernook {

inline constexpr int item_capacity = 10000;
inline constexpr int catagory_capacity = 100;
inline constexpr int unit_capacity = 1000;
inline constexpr int store_capacity = 1000;
inline constexpr int meal_capacity = 1000;
inline constexpr int day_capacity = 1095;
inline constexpr int wam_capacity = 200;
inline constexpr int pooled_string_capacity = 30000;
inline constexpr i16 default_currency_symbol = 36;  // "$"

extern Table<ItemRecord, item_capacity> items;
extern Table<ItemDetailRecord, item_capacity> item_details;
extern LotTable lots;
extern Table<CatagoryRecord, catagory_capacity> catagories;
extern Table<UnitRecord, unit_capacity> units;
extern Table<StoreRecord, store_capacity> stores;
extern Table<MealRecord, meal_capacity> meals;
extern Table<f64, meal_capacity> meal_serving_size;
extern Table<std::string, meal_capacity> meal_documents;
extern Table<DayRecord, day_capacity> days;
extern Table<DayQuantityRecord, day_capacity> day_quantities;
extern Table<WamRecord, wam_capacity> wams;
extern Table<std::string, pooled_string_capacity> pooled_strings;
extern Table<i16, item_capacity> expiring_items;  // computed by the audit, not saved

// The header at the front of a project file, as last read or written.
struct ProjectHeader {
    struct Section {
        i16 count = 0;
        i32 position = 0;
        bool operator==(const Section&) const = default;
    };
    Section items, catagories, meals, units, stores, days;
    i16 reserved = 0;
    i32 setup_position = 0;
    i32 documents_position = 0;
    i16 file_version = 0;  // 1 = current form, anything else = older form
    bool operator==(const ProjectHeader&) const = default;
};
extern ProjectHeader project_header;
extern i16& file_version;                           // project_header.file_version
extern std::array<i16, 11> project_reserved_words;  // read and written back, never interpreted

// Project settings.
extern i16 audit_hour;
extern i16 audit_minute;
extern i16 expiration_warning_days;
extern f64 sales_tax;  // per cent
extern i16 scanner_comm_port;
extern i16 scanner_reserved;
extern i16 ftp_send_after_audit;
extern i16 audit_on_startup;
extern i16 save_after_audit;
extern i16 scanner_type;
extern Date project_created;
extern FixedString<128> ftp_server;
extern FixedString<64> ftp_account;
extern FixedString<32> ftp_password;
extern FixedString<128> ftp_directory;
extern i16 audit_days_ahead;
extern i16 currency_symbol;  // character code: 36, 165 or 163
extern i16 font_size;        // points; 0 = not chosen
extern i16 show_toolbar_text;
extern i16 project_tag;

// Where the open project lives. Paths are the file system's own bytes.
extern std::string project_path;
extern std::string project_name;  // the file's name with its extension

// Brings all tables into the state of a new project: everything free and blank, the category
// "General" and thirteen units live, no store. Settings stay, except that scanner_type becomes 0;
// the type and parent of categories stay as well.
void reset_project_tables() noexcept;

}  // namespace tavernook
