#include "transfer/run_length.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>

#include "basics/byte_codec.h"
#include "basics/fault.h"
#include "core/project_file/sequential_file.h"

namespace tavernook {

namespace {

constexpr std::size_t block_size = 32000;
constexpr std::size_t most_blocks = 255;
constexpr std::size_t shortest_run = 7;
constexpr std::size_t longest_run = 65535;
constexpr std::size_t entry_size = 6;
constexpr std::size_t most_entries = 65535;
constexpr std::size_t count_size = 2;
constexpr char blank = ' ';

struct Run {
    std::size_t block = 0;  // from 1
    std::size_t start = 0;  // in the block, from 1
    std::size_t length = 0;
    char byte = 0;
};

// Hands pieces on in larger ones.
class Outflow {
  public:
    explicit Outflow(const Outlet& outlet) : outlet_(outlet) {}

    void write(std::string_view bytes) {
        bytes_.append(bytes);
        if (bytes_.size() >= worth_it) flush();
    }
    void write(std::size_t count, char byte) {
        bytes_.append(count, byte);
        if (bytes_.size() >= worth_it) flush();
    }
    void flush() {
        if (!bytes_.empty()) outlet_(bytes_);
        bytes_.clear();
    }

  private:
    static constexpr std::size_t worth_it = std::size_t{256} * 1024;

    const Outlet& outlet_;
    std::string bytes_;
};

void append_pair(std::string& bytes, std::size_t number) {
    bytes += static_cast<char>(number / 256);
    bytes += static_cast<char>(number % 256);
}

std::size_t byte_at(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]);
}

std::size_t pair_at(std::string_view bytes, std::size_t place) {
    return byte_at(bytes, place) * 256 + byte_at(bytes, place + 1);
}

std::size_t end_of_run(std::string_view bytes, std::size_t start) {
    const char byte = bytes[start];
    std::size_t end = start + 1;
    while (end < bytes.size() && bytes[end] == byte) ++end;
    return end;
}

// Where the blanks at its end begin; its size where there are none.
std::size_t start_of_blank_tail(std::string_view block) {
    return block.find_last_not_of(blank) + 1;
}

// The next run that is long enough for the table; the block's size where there is none. Of seven
// equal bytes four stand together at every fourth place, so that only those are looked at.
std::size_t next_long_run(std::string_view block, std::size_t from) {
    for (std::size_t place = from; place + 4 <= block.size(); place += 4) {
        const auto four = load_little_endian<std::uint32_t>(block.data() + place);
        if (four != std::rotl(four, 8)) continue;
        std::size_t start = place;
        while (start > from && block[start - 1] == block[place]) --start;
        if (end_of_run(block, place) - start >= shortest_run) return start;
    }
    return block.size();
}

class RunCoder {
  public:
    explicit RunCoder(const Outlet& outlet) : out_(outlet) {}

    void add_block(std::string_view block);

    // Whatever run is still open is not written.
    void finish();

  private:
    void close(const Run& run);

    Outflow out_;
    std::string table_;
    std::size_t block_ = 0;
    std::optional<Run> open_;  // from the end of the block before
};

void RunCoder::add_block(std::string_view block) {
    ++block_;
    const std::size_t tail = start_of_blank_tail(block);
    std::size_t written = 0;
    std::size_t start = open_ ? 0 : std::min(next_long_run(block, 0), tail);
    while (start < block.size()) {
        const std::size_t end = end_of_run(block, start);
        out_.write(block.substr(written, start - written));
        written = end;
        Run run = open_.value_or(Run{block_, start + 1, 1, block[start]});
        run.length += end - start - 1;
        open_.reset();
        if (end == block.size() && block[start] == blank) {
            ++run.length;
            open_ = run;
        } else {
            close(run);
        }
        start = std::min(next_long_run(block, end), std::max(tail, end));
    }
    out_.write(block.substr(written));
}

void RunCoder::close(const Run& run) {
    if (run.length < shortest_run) return out_.write(run.length, run.byte);
    const bool is_full = table_.size() == most_entries * entry_size;
    if (is_full || run.length > longest_run) throw Fault(fault_number::overflow);
    table_ += static_cast<char>(run.block);
    append_pair(table_, run.start);
    append_pair(table_, run.length);
    table_ += run.byte;
}

void RunCoder::finish() {
    append_pair(table_, table_.size() / entry_size);
    out_.write(table_);
    out_.flush();
}

Run run_at(std::string_view table, std::size_t place) {
    return {byte_at(table, place), pair_at(table, place + 1), pair_at(table, place + 3),
            table[place + 5]};
}

bool can_be(const Run& run) {
    return run.block >= 1 && run.start >= 1 && run.start <= block_size &&
           run.length >= shortest_run;
}

// The table, and how many bytes stand in front of it.
struct Parts {
    std::string table;
    std::size_t literals = 0;
};

Parts parts_of(File& backup) {
    const auto length = static_cast<std::size_t>(backup.length());
    if (length < count_size) throw Fault(fault_number::bad_record_number);
    const auto count_place = static_cast<i64>(length - count_size) + 1;
    const std::size_t table_size =
        entry_size * pair_at(read_exactly(backup, count_place, count_size), 0);
    if (table_size > length - count_size) throw Fault(fault_number::bad_record_number);
    const std::size_t literals = length - count_size - table_size;
    return {read_exactly(backup, static_cast<i64>(literals) + 1, table_size), literals};
}

void copy_literals(SequentialReader& literals, std::size_t count, Outflow& out) {
    while (count > 0) {
        const std::size_t part = std::min(count, SequentialReader::block_size);
        out.write(literals.take(part));
        count -= part;
    }
}

}  // namespace

void encode_runs(File& source, const Outlet& outlet, const Progress& progress) {
    const auto length = static_cast<std::size_t>(source.length());
    const std::size_t last = length % block_size;
    const std::size_t blocks = length / block_size + (last > 0 ? 1 : 0);
    if (blocks > most_blocks) throw Fault(fault_number::overflow);
    RunCoder coder(outlet);
    for (std::size_t block = 1; block <= blocks; ++block) {
        const std::size_t size = block < blocks ? block_size : last;
        coder.add_block(read_exactly(source, static_cast<i64>((block - 1) * block_size) + 1, size));
        progress(static_cast<int>(block * 99 / blocks));
    }
    coder.finish();
}

void decode_runs(File& backup, const Outlet& outlet, const Progress& progress) {
    Parts parts = parts_of(backup);
    SequentialReader literals(backup, 1);
    Outflow out(outlet);
    std::size_t restored = 0;
    for (std::size_t place = 0; place < parts.table.size(); place += entry_size) {
        const Run run = run_at(parts.table, place);
        if (!can_be(run)) throw Fault(fault_number::bad_record_number);
        const std::size_t start = (run.block - 1) * block_size + run.start - 1;
        if (start < restored || start - restored > parts.literals) {
            throw Fault(fault_number::bad_record_number);
        }
        copy_literals(literals, start - restored, out);
        parts.literals -= start - restored;
        out.write(run.length, run.byte);
        restored = start + run.length;
        progress(static_cast<int>((place + entry_size) * 99 / parts.table.size()));
    }
    out.flush();
}

}  // namespace tavernook
