#include "transfer/inventory_exchange.h"

#include <optional>
#include <unordered_map>

#include "basics/fault.h"
#include "basics/text.h"
#include "core/catagories.h"
#include "core/changes.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/item_slots.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "inventory/usage_files.h"
#include "platform/platform.h"
#include "transfer/csv_import.h"
#include "transfer/exchange_status.h"
#include "transfer/exchange_words.h"
#include "transfer/export_target.h"
#include "transfer/import_references.h"
#include "transfer/import_tally.h"
#include "transfer/inventory_file.h"
#include "transfer/portable_file.h"

namespace tavernook {

namespace {

constexpr std::string_view inventory_extension = ".ipf";

std::string counted_items(int count) {
    return counted(count, "item", "items");
}

// --- export -------------------------------------------------------------------------------------

// Whether an item goes out that is live.
using Choice = bool (*)(const ItemRecord& item);

Choice ask_what_goes_out() {
    const Answer answer = boxes().message(
        "Press YES if you want to Export the entire inventory, Or Press NO if you just want to "
        "export the current selected category.",
        Buttons::yes_no_cancel);
    if (answer == Answer::yes) return [](const ItemRecord&) { return true; };
    if (answer == Answer::no) {
        return [](const ItemRecord& item) { return item.category == current_catagory; };
    }
    return [](const ItemRecord&) { return false; };
}

i16 write_items(File& file, Choice goes_out, ExchangeStatus& status) {
    InventoryFileWriter writer(file);
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (!is_live_row(items, item) || !goes_out(items[item])) continue;
        log_exchange_line("Exporting Item " + std::string(items[item].name.trimmed()));
        writer.add(block_of_item(item));
        status.step(item, item_capacity);
    }
    writer.finish();
    return writer.count();
}

// What has come of it.
std::string export_to(const std::string& target, Choice goes_out, ExchangeStatus& status) {
    const std::string name = shown_file_name(target);
    std::optional<Fault> failure;
    i16 count = 0;
    const auto write = [&](File& file) { count = write_items(file, goes_out, status); };
    const bool is_written =
        trap([&] { pack_portable(target, write); }, [&](const Fault& fault) { failure = fault; });
    if (is_written) {
        status.complete();
        return "Exported " + counted_items(count) + " to " + name + ".";
    }
    if (!failure) return "The export was cancelled; " + name + " was not written.";
    log_exchange_line("Error with Exporting Process " + failure->description);
    return "The export failed: " + failure->description + "; " + name + " was not written.";
}

// --- import -------------------------------------------------------------------------------------

class InventoryImport {
  public:
    InventoryImport();

    void take(ItemBlock& block);
    std::string outcome(const std::string& name) const;

  private:
    i16 existing(std::string_view name) const;
    bool add(ItemBlock& block);
    void remember(i16 item);

    const ImportTally tally_;
    const OnlyAddingItems adding_;
    ImportReferences references_;
    std::unordered_map<std::string, i16> by_name_;  // the first item of a name
    int free_items_ = item_capacity - live_counts().items;
    int taken_ = 0;
    int used_ = 0;  // items of the inventory that stood for one of the file
    LeftOut left_out_;
};

InventoryImport::InventoryImport() {
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (is_live_row(items, item)) remember(item);
    }
}

void InventoryImport::remember(i16 item) {
    const auto [known, is_new] = by_name_.emplace(lower_case(items[item].name.trimmed()), item);
    if (!is_new && item < known->second) known->second = item;
}

// As find_item_by_name finds it, and alive; 0 when there is none, or the user wants another one.
i16 InventoryImport::existing(std::string_view name) const {
    const auto known = by_name_.find(lower_case(trim(name)));
    if (known == by_name_.end()) return 0;
    const RowRef item(Subject::items, known->second);
    const Answer answer = boxes().message(
        "The item " + std::string(trim(name)) +
            " already exists in your inventory.  Press YES to use existing inventory Item or NO "
            "to add the item to inventory as new item",
        Buttons::yes_no);
    return answer == Answer::yes ? item.now() : i16{0};
}

void InventoryImport::take(ItemBlock& block) {
    ++taken_;
    const std::string name = without_padding(block.item.name.stored());
    block.item.name = name;
    log_exchange_line("Importing Item " + name);
    if (const i16 item = existing(name)) {
        ++used_;
        find_catagory_for_item(block.category, item, references_);
    } else if (!add(block)) {
        left_out_.add("item " + std::to_string(taken_), "the inventory is full");
    }
}

// False when no slot is free.
bool InventoryImport::add(ItemBlock& block) {
    if (free_items_ == 0) return false;
    --free_items_;
    const i16 item = find_free_item_slot();
    begin_usage_history(item);
    references_.settle(block);
    items[item] = block.item;
    item_details[item] = block.detail;
    find_catagory_for_item(block.category, item, references_);
    first_lot_from_item(item);
    items[item].quantity = 0;
    remember(item);
    return true;
}

std::string InventoryImport::outcome(const std::string& name) const {
    std::string told = name + ": " + tally_.words() + " came in";
    if (used_ > 0) told += "; for " + counted_items(used_) + " those of the inventory were used";
    told += left_out_.words();
    if (references_.lost() > 0) told += "; some names and texts found no room in the project";
    return told + ".";
}

std::string bring_in(const std::string& source, ExchangeStatus& status) {
    log_exchange_line("Importing Inventory");
    const PortableFileRemoval removal;
    const auto file = unpack_portable(source, "File extraction watchdog timer overflow.");
    if (!file) throw Fault(fault_number::cancel_was_selected);
    InventoryFileReader reader(*file);
    InventoryImport import;
    project_modified = i16_true;
    ItemBlock block;
    for (int done = 1; reader.next(block); ++done) {
        import.take(block);
        status.step(done, reader.count());
    }
    if (ports::FoodInventory* screen = food_inventory()) screen->populate_tree();
    log_exchange_line("Importing completed");
    return import.outcome(shown_file_name(source));
}

// --- the commands -------------------------------------------------------------------------------

std::string beside_project(std::string_view pattern) {
    return folder_of(project_path) + "/" + std::string(pattern);
}

void import_chosen() {
    const std::string source = file_dialogs().open_file(
        {"Inventory Import", "All Files (*.*)|*.*", beside_project("*.*")});
    if (project_open == i16_false) return;  // closed while the dialog stood open
    if (has_ending(source, "csv")) return import_csv(source);
    if (has_ending(source, "ipf")) return import_inventory(source);
    say(shown_file_name(source) +
        " was not imported: only files whose names end in .csv or .ipf can be.");
}

void export_chosen() {
    const std::string chosen = file_dialogs().save_file(
        {"Inventory Export", "Inventory Export Files (*.ipf)|*.ipf", beside_project("*.ipf")});
    if (project_open == i16_false) return;
    const std::string target = export_target(chosen, inventory_extension, "nothing was exported");
    if (!target.empty()) export_inventory(target);
}

}  // namespace

void find_catagory_for_item(std::string_view name, i16 item,
                            ImportReferences& references) noexcept {
    trap_in_module([&] { items[item].category = references.catagory(name); });
}

void export_inventory(const std::string& target) noexcept {
    trap_in_module([&] {
        const Choice goes_out = ask_what_goes_out();
        ExchangeStatus status("Export Status");
        log_exchange_line("Starting Export of Inventory");
        const std::string outcome = export_to(target, goes_out, status);
        log_exchange_line(outcome);
        say(outcome);
    });
}

void import_inventory(const std::string& source) noexcept {
    run_import(source, [&](ExchangeStatus& status) { return bring_in(source, status); });
}

void inventory_import() noexcept {
    trap_in_module(import_chosen);
}

void inventory_export() noexcept {
    trap_in_module(export_chosen);
}

}  // namespace tavernook
