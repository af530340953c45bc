#include "transfer/csv_export.h"

#include "basics/code_page.h"
#include "basics/date.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/rows.h"
#include "platform/platform.h"
#include "transfer/arriving_project.h"
#include "transfer/exchange_words.h"
#include "transfer/export_target.h"
#include "transfer/work_progress.h"

namespace tavernook {

namespace {

constexpr const char* procedure = "mnufile_Export_csv_click";
constexpr std::string_view csv_extension = ".csv";
constexpr std::size_t row_width = 512;
constexpr int behind_stores = 25;
constexpr std::string_view item_columns =
    "Index,Catagory,Title,Quantity,Quantity Units Index,Quantity Units,Storage Time (Days),Entry "
    "Date,Stock Quantity,Restock Quantity,Cost/Unit ($),Store Index,Store Name,Serving "
    "Size,Serving Size Units Index,Serving Size Units,Servings/Quantity Units,Fat,Calories";

// Rows of one width, as they go into the file.
class Rows {
  public:
    explicit Rows(File& file) : file_(file) {}

    // A longer text is cut.
    void add(std::string_view text) {
        const std::string_view shown = text.substr(0, row_width);
        bytes_.append(shown).append(row_width - shown.size(), ' ').append("\r\n");
        if (bytes_.size() >= worth_it) flush();
    }
    void flush() {
        file_.write(at_, bytes_);
        at_ += static_cast<i64>(bytes_.size());
        bytes_.clear();
    }

  private:
    static constexpr std::size_t worth_it = std::size_t{256} * 1024;

    File& file_;
    std::string bytes_;
    i64 at_ = 0;
};

// Fields with "," between them.
class Row {
  public:
    Row& add(std::string_view text) {
        if (!is_first_) text_ += ',';
        is_first_ = false;
        text_ += text;
        return *this;
    }
    Row& add(f64 number) { return add(number_text(number)); }

    const std::string& text() const { return text_; }

  private:
    std::string text_;
    bool is_first_ = true;
};

// A day that no calendar has: nothing.
std::string shown_date(Date date) {
    std::string shown;
    tried([&] { shown = date_text(date); });
    return shown;
}

template <typename Record, int N>
std::string_view name_of(const Table<Record, N>& table, i16 row) {
    return row_or_none(table, row).name.right_trimmed();
}

template <typename Record, int N>
void write_names(Rows& rows, const Table<Record, N>& table) {
    for (i16 row = 1; row <= N; ++row) {
        if (is_live_row(table, row)) rows.add(Row().add(row).add(name_of(table, row)).text());
    }
}

std::string text_of_item(i16 number) {
    const ItemRecord& item = items[number];
    Row row;
    row.add(number).add(name_of(catagories, item.category)).add(item.name.right_trimmed());
    row.add(item.quantity).add(item.qty_units).add(name_of(units, item.qty_units));
    row.add(item.storage_time).add(shown_date(item.last_restock_date));
    row.add(item.stock_quantity).add(item.restock_quantity);
    row.add(format_number(item.cost, "##.00"));
    row.add(item.store).add(name_of(stores, item.store));
    row.add(item.serving_size).add(item.serving_size_units);
    row.add(name_of(units, item.serving_size_units)).add(item.servings_per_qty_unit);
    row.add(item.fat).add(item.calories);
    return row.text();
}

int write_items(Rows& rows, WorkProgress& progress) {
    int written = 0;
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (item % 100 == 0) {
            progress.step(behind_stores + (100 - behind_stores) * item / item_capacity);
        }
        if (!is_live_row(items, item)) continue;
        rows.add(text_of_item(item));
        ++written;
    }
    return written;
}

// How many items there were.
int write_rows(File& file, WorkProgress& progress) {
    Rows rows(file);
    rows.add("Tavernook - CSV Export. " + date_text(platform_clock().now()) +
             " Project: " + text_from_utf8(project_path));
    rows.add("Stores:");
    rows.add("Index,Store");
    write_names(rows, stores);
    progress.step(behind_stores);
    rows.add("Units:");
    rows.add("Index,Unit");
    write_names(rows, units);
    rows.add("Items:");
    rows.add(item_columns);
    const int written = write_items(rows, progress);
    rows.flush();
    return written;
}

void export_rows(const std::string& target) {
    WorkProgress progress("Export Inventory", "Exporting Inventory to CSV format...Please Wait");
    int written = 0;
    const auto write = [&](File& file) { written = write_rows(file, progress); };
    replace_file(target, write, project_path);
    files().flush_folder(folder_of(target));
    say("Exported " + std::to_string(written) + (written == 1 ? " item" : " items") +
        " with the stores and units as " + shown_file_name(target) + ".");
}

void ask_and_export() {
    if (project_open == 0) return;
    const std::string target = export_target(
        file_dialogs().save_file({"Export to CSV", "Tavernook Files (*.csv)|*.csv",
                                  in_program_folder(std::string("*").append(csv_extension))}),
        csv_extension, "nothing was exported");
    if (!target.empty()) export_to_csv(target);
}

}  // namespace

bool export_to_csv(const std::string& target) noexcept {
    const auto not_exported = [&](const std::string& why) {
        say(shown_file_name(target) + " was not exported: " + why + ".");
    };
    return trap_work([&] { export_rows(target); },
                     [&](const Fault& fault) {
                         not_exported(fault.description);
                         show_fault(module_message(fault));
                     },
                     [&] { not_exported("cancelled"); });
}

void mnuFile_CSVExport() noexcept {
    trap_in_main(procedure, ask_and_export);
}

}  // namespace tavernook
