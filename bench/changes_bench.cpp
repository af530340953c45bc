// The look for changes at the end of a step, on a full project, beside a copy of the same bytes in
// the same run. "ratio" is the look in copies. Goal: 2 at most.
#include <cstring>
#include <vector>

#include "core/changes.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "support/generated_projects.h"
#include "yardstick.h"

namespace tavernook {
namespace {

struct Block {
    const void* from;
    std::size_t size;
};

template <typename Record, int Capacity>
Block block_of(const Table<Record, Capacity>& table) {
    return {&table[0], sizeof(Record) * (Capacity + 1)};
}

// What a look must compare.
std::vector<Block> all_blocks() {
    std::vector<Block> blocks = {
        block_of(items),          block_of(item_details),
        block_of(catagories),     block_of(units),
        block_of(stores),         block_of(meals),
        block_of(days),           block_of(meal_serving_size),
        block_of(day_quantities), {&lots[0], sizeof(LotRecord) * std::size_t{item_capacity + 1}}};
    for (const std::string& text : pooled_strings) blocks.push_back({text.data(), text.size()});
    for (const std::string& text : meal_documents) blocks.push_back({text.data(), text.size()});
    for (const WamRecord& line : wams) blocks.push_back({line.text.data(), line.text.size()});
    return blocks;
}

class Copy {
  public:
    Copy() : blocks_(all_blocks()) {
        std::size_t size = 0;
        for (const Block& block : blocks_) size += block.size;
        bytes_.resize(size);
    }

    unsigned long long operator()() {
        char* to = bytes_.data();
        for (const Block& block : blocks_) {
            std::memcpy(to, block.from, block.size);
            to += block.size;
        }
        benchmark::ClobberMemory();
        return static_cast<unsigned char>(bytes_[bytes_.size() / 2]);
    }

    double megabytes() const { return static_cast<double>(bytes_.size()) / 1e6; }

  private:
    std::vector<Block> blocks_;
    std::vector<char> bytes_;
};

void look(benchmark::State& state, const std::function<void()>& change) {
    const TestPlatform platform;
    fill_full_project();
    look_for_changes();
    Copy copy;
    measure(
        state, [&copy] { return copy(); }, [] { look_for_changes(); }, change);
    state.counters["MB"] = copy.megabytes();
}

void nothing_changed(benchmark::State& state) {
    look(state, [] {});
}

void one_item_changed(benchmark::State& state) {
    look(state, [] { items[5000].quantity += 1; });
}

// As the audit does it: stock and plans all over the tables.
void everything_changed(benchmark::State& state) {
    look(state, [] {
        for (i16 item = 1; item <= item_capacity; ++item) {
            items[item].quantity += 1;
            lots[item].lot_quantity[0] += 1;
        }
        for (i16 day = 1; day <= day_capacity; ++day) days[day].audited ^= 1;
    });
}

BENCHMARK(nothing_changed)->UseManualTime();
BENCHMARK(one_item_changed)->UseManualTime();
BENCHMARK(everything_changed)->UseManualTime();

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
