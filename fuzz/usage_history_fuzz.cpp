// Reads any bytes as the saved usage history of an item, then moves stock on top of it.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "core/program_folders.h"
#include "core/project_data.h"
#include "inventory/lots.h"
#include "inventory/usage_files.h"
#include "inventory/usage_history.h"
#include "kept_files.h"
#include "platform/platform.h"

namespace tavernook {
namespace {

class StillClock : public Clock {
  public:
    Date now() override { return 45427.5; }
    void wait_seconds(double) override {}
};

class FixedInfo : public SystemInfo {
  public:
    std::string program_folder() override { return "/program"; }
    std::string settings_folder() override { return "/settings"; }
    std::string short_date_format() override { return "M/d/yyyy"; }
};

KeptFiles kept_files;
StillClock still_clock;
CountedBoxes counted_boxes;
FixedInfo fixed_info;

constexpr i16 item = 3;
const std::string saved_path = "/program/reports/pantry000003.dat";
const std::string working_path = "/program/reports/pantry000003.tmp";

void start() {
    set_platform({.clock = &still_clock,
                  .boxes = &counted_boxes,
                  .files = &kept_files,
                  .system_info = &fixed_info});
    reset_project_tables();
    set_project_path("/home/me/pantry.tvk");
    items[item].in_use = 1;
    items[item].qty_units = 1;
    items[item].cost = 1.5;
}

void require(bool condition) {
    if (!condition) std::abort();
}

void check_entries(std::string_view bytes) {
    const std::vector<UsageEntry> entries = decode_usage(bytes);
    require(entries.size() == bytes.size() / usage_entry_size);
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        const std::string_view raw = bytes.substr(entry * usage_entry_size + 1, 20);
        require(encode_usage(entries[entry]).substr(1) == raw);
    }
}

// Either the whole page, or one box and the page as far as it came.
void check_page(std::string_view bytes) {
    counted_boxes.shown = 0;
    const std::string page = Get_Item_Usage(item);
    require(page.empty() == (bytes.size() < usage_entry_size));
    require(page.empty() || page.ends_with("</table>") == (counted_boxes.shown == 0));
    require(counted_boxes.shown <= 1);
    require(kept_files.kept.size() == 1 && kept_files.kept.at(saved_path) == bytes);
}

void check_moves(const std::string& bytes) {
    init_lot_record(item);
    counted_boxes.shown = 0;
    require(add_to_lots(item, 2.5) == -1);
    require(kept_files.kept.at(working_path) == bytes + encode_usage({2.5, 45427.5, 2, 0}));
    require(remove_from_lots(item, 1) == -1);
    const std::string expected = bytes + encode_usage({1, 45427.5, 1, 0});
    require(kept_files.kept.at(working_path) == expected);
    require(kept_files.kept.at(saved_path) == bytes);
    require(commit_usage_files());
    require(discard_usage_files());
    require(kept_files.kept.size() == 1 && kept_files.kept.at(saved_path) == expected);
    require(counted_boxes.shown == 0);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    tavernook::start();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace tavernook;
    const std::string bytes(data, data + size);
    kept_files.kept = {{saved_path, bytes}};
    check_entries(bytes);
    check_page(bytes);
    check_moves(bytes);
    return 0;
}
