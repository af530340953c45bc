#include "inventory/usage_history.h"

#include <cmath>

#include "basics/byte_codec.h"
#include "basics/number_text.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/usage_files.h"
#include "inventory/usage_names.h"
#include "inventory/working_copies.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

void write_best_effort(i16 item, const UsageEntry& entry) {
    try {
        write_usage(item, encode_usage(entry));
    } catch (...) {
        // The stock move counts, not its history.
    }
}

bool moves_are_held = false;
Table<UsageEntry, item_capacity> held_moves;  // kind 0 = none

constexpr std::size_t bytes_at_once = usage_entry_size * 3000;

std::string change_text(i16 item, const UsageEntry& entry) {
    std::string text = format_number(entry.amount, "#0.00") + " ";
    text.append(row_or_none(units, row_or_none(items, item).qty_units).name.stored());
    text += entry.kind == usage_removed ? "Removed from " : "Added to ";
    if (entry.lot_place < 0 || entry.lot_place >= lot_places) {
        throw Fault(fault_number::subscript_out_of_range);
    }
    if (item > lot_table_top) return text;
    const auto place = static_cast<std::size_t>(entry.lot_place);
    return text.append(lots[item].lot_name[place].stored());
}

std::string total_text(f64 total) {
    std::string text(1, static_cast<char>(currency_symbol));
    text += format_number(std::fabs(total), "###.00");
    text.resize(15, ' ');
    return text;
}

constexpr const char* table_head =
    "<font = \"Arial\" size = \"1\" ><table border=\"0\" width=\"100%\" cellspacing=\"0\" "
    "cellpadding=\"0\"><tr><td><b>Date</b></td><td><b>Change</b></td>";

void append_entries(std::string& page, i16 item, File& file) {
    f64 added_cost = 0;
    std::string bytes(bytes_at_once, '\0');
    for (i64 offset = 0;; offset += static_cast<i64>(bytes_at_once)) {
        const std::size_t got = file.read(offset, bytes.data(), bytes.size());
        for (const UsageEntry& entry : decode_usage(std::string_view(bytes).substr(0, got))) {
            page += "<tr><td>" + date_text(entry.moved) + "</td><td>" + change_text(item, entry) +
                    "</td>";
            if (entry.kind == usage_added)
                added_cost += entry.amount * row_or_none(items, item).cost;
        }
        if (got < bytes.size()) break;
    }
    page += total_text(added_cost) + "</table>";
}

}  // namespace

std::vector<UsageEntry> decode_usage(std::string_view bytes) noexcept {
    std::vector<UsageEntry> entries(bytes.size() / usage_entry_size);
    ByteReader reader(bytes);
    for (UsageEntry& entry : entries) {
        reader.skip(1);
        entry.amount = reader.read_f64();
        entry.moved = reader.read_f64();
        entry.kind = reader.read_i16();
        entry.lot_place = reader.read_i16();
    }
    return entries;
}

std::string encode_usage(const UsageEntry& entry) noexcept {
    ByteWriter bytes;
    bytes.write_zeros(1);
    bytes.write_f64(entry.amount);
    bytes.write_f64(entry.moved);
    bytes.write_i16(entry.kind);
    bytes.write_i16(entry.lot_place);
    return std::string(bytes.bytes());
}

void record_item_usage(i16 item, f64 amount, i16 kind, i16 lot_place) noexcept {
    const UsageEntry entry{amount, platform_clock().now(), kind, lot_place};
    if (item < 0 || item > item_capacity) return;
    if (moves_are_held) {
        held_moves[item] = entry;
    } else {
        write_best_effort(item, entry);
    }
}

HeldUsage::HeldUsage() {
    moves_are_held = true;
}

HeldUsage::~HeldUsage() {
    moves_are_held = false;
    for (i16 item = 0; item <= item_capacity; ++item) {
        if (held_moves[item].kind != 0) write_best_effort(item, held_moves[item]);
        held_moves[item] = UsageEntry{};
    }
}

std::string Get_Item_Usage(i16 item) noexcept {
    std::string page;
    if (has_no_saved_usage(item)) return "*";
    try {
        const std::string path = usage_path(project_stem(), item, saved_extension);
        const auto file = files().open(path, OpenMode::read);
        if (file->length() < static_cast<i64>(usage_entry_size)) return {};
        page = table_head;
        append_entries(page, item, *file);
    } catch (...) {
        const Fault fault = present_fault();
        if (fault.number == fault_number::file_not_found) return "*";
        boxes().message("Get_Item_Usage ERROR: " + fault.description);
    }
    return page;
}

}  // namespace tavernook
