#include "aids/project_dates.h"

#include "core/project_file/project_file_format.h"
#include "core/project_file/project_file_records.h"

namespace tavernook {

namespace {

using namespace project_file;

[[noreturn]] void fail_as_damaged() {
    throw Fault(fault_number::bad_record_number);
}

// `position` counts from 1. What is returned is the offset of `size` bytes that are there.
std::size_t offset_of(const std::string& bytes, i64 position, i64 size) {
    const auto length = static_cast<i64>(bytes.size());
    if (position < 1 || position - 1 > length - size) fail_as_damaged();
    return static_cast<std::size_t>(position - 1);
}

template <typename Number>
Number number_at(const std::string& bytes, i64 position) {
    return load_little_endian<Number>(bytes.data() + offset_of(bytes, position, sizeof(Number)));
}

// Where a block starts, as it is told at a position.
i64 block_at(const std::string& bytes, i64 position) {
    const i64 block = number_at<i32>(bytes, position);
    if (block < 1) fail_as_damaged();
    return block;
}

// Reads the record, lets `change` work on it and writes it back.
template <typename Record, typename Change>
void change_record(std::string& bytes, i64 position, int size, Change&& change) {
    const std::size_t offset = offset_of(bytes, position, size);
    Record record;
    ByteReader reader(std::string_view(bytes).substr(offset, static_cast<std::size_t>(size)));
    FieldReader read(reader);
    fields(read, record);
    change(record);
    ByteWriter written;
    FieldWriter write(written);
    fields(write, record);
    bytes.replace(offset, written.size(), written.bytes());
}

ProjectHeader header_of(const std::string& bytes) {
    ProjectHeader header;
    ByteReader reader(
        std::string_view(bytes).substr(offset_of(bytes, header_position, header_size)));
    FieldReader read(reader);
    fields(read, header);
    if (header.file_version != current_file_version || header.setup_position < 1) fail_as_damaged();
    return header;
}

void move(Date& date, int days) {
    if (date == 0) return;
    date += days;
    (void)civil_from_date(date);  // faults outside the calendar
}

void move_day(DayRecord& day, int days) {
    if (day.year == 0) return;
    const CivilDate moved = civil_from_date(date_from_civil(day.year, day.month, day.day) + days);
    day.year = to_i16(moved.year);
    day.month = to_i16(moved.month);
    day.day = to_i16(moved.day);
}

void move_lots(LotRecord& lot, int days) {
    for (Date& date : lot.creation_date) move(date, days);
    for (Date& date : lot.expiration_date) move(date, days);
}

// The records of a section, behind their slot numbers.
template <typename Record, typename Change>
void change_section(std::string& bytes, const ProjectHeader::Section& section, int size, int stride,
                    Change&& change) {
    if (section.count < 0 || section.position < 1) fail_as_damaged();
    for (i64 n = 0; n < section.count; ++n) {
        change_record<Record>(bytes, section.position + n * stride + slot_size, size, change);
    }
}

void move_lot_block(std::string& bytes, int days) {
    const i64 array = block_at(bytes, lots_slot) + lot_array_offset;
    const i64 count = number_at<i32>(bytes, array + 2);
    if (count < 0 || count > highest_lot_count) fail_as_damaged();
    for (i64 n = 0; n < count; ++n) {
        change_record<LotRecord>(bytes, array + lot_array_head + n * lot_size, lot_size,
                                 [&](LotRecord& lot) { move_lots(lot, days); });
    }
}

void move_item_details(std::string& bytes, i64 block, int days) {
    for (i64 n = 0; n <= item_capacity; ++n) {
        change_record<ItemDetailRecord>(
            bytes, block + n * item_detail_size, item_detail_size,
            [&](ItemDetailRecord& detail) { move(detail.created_date, days); });
    }
}

void move_project_created(std::string& bytes, i64 setup, int days) {
    const i64 position = setup + setup_project_created_offset;
    auto created = number_at<f64>(bytes, position);
    move(created, days);
    store_little_endian(bytes.data() + position - 1, created);
}

}  // namespace

std::string project_moved_by_days(std::string bytes, int days) {
    const ProjectHeader header = header_of(bytes);
    change_section<ItemRecord>(bytes, header.items, item_size, item_stride,
                               [&](ItemRecord& item) { move(item.last_restock_date, days); });
    change_section<DayRecord>(bytes, header.days, day_size, day_stride,
                              [&](DayRecord& day) { move_day(day, days); });
    move_project_created(bytes, header.setup_position, days);
    move_lot_block(bytes, days);
    move_item_details(bytes, block_at(bytes, i64{header.setup_position} + setup_item_details_slot),
                      days);
    return bytes;
}

}  // namespace tavernook
