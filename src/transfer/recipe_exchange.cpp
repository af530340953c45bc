#include "transfer/recipe_exchange.h"

#include <memory>
#include <optional>

#include "basics/fault.h"
#include "basics/text.h"
#include "core/changes.h"
#include "core/program_state.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "inventory/usage_files.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "recipes/meals.h"
#include "recipes/recipe_names.h"
#include "transfer/exchange_words.h"
#include "transfer/import_references.h"
#include "transfer/item_block.h"
#include "transfer/portable_file.h"
#include "transfer/recipe_file.h"

namespace tavernook {

namespace {

constexpr i16 general_catagory = 1;

template <typename Table>
int live_rows(const Table& table) {
    int live = 0;
    for (const auto& record : table) live += record.in_use == 1 ? 1 : 0;
    return live;
}

// The rows that the names of the file have found or taken, and how many are new.
class Names {
  public:
    ImportReferences& rows() { return references_; }
    std::string words() const;

  private:
    ImportReferences references_;
    int units_before_ = live_rows(units);
    int stores_before_ = live_rows(stores);
};

std::string Names::words() const {
    std::string words;
    const int new_units = live_rows(units) - units_before_;
    const int new_stores = live_rows(stores) - stores_before_;
    if (new_units > 0) words += "  New units: " + std::to_string(new_units) + ".";
    if (new_stores > 0) words += "  New stores: " + std::to_string(new_stores) + ".";
    if (references_.lost() > 0) {
        words +=
            "  Units, stores or texts that found no room: " + std::to_string(references_.lost()) +
            ".";
    }
    return words;
}

Answer ask_about_recipe() {
    return boxes().message(
        "This meal already exists in your project.\nPress YES to overwrite existing meal\n"
        "Or NO to import as different recipe\nOr CANCEL to cancel Import",
        Buttons::yes_no_cancel);
}

Answer ask_about_item(const std::string& name) {
    return boxes().message("The item " + name +
                               " already exists in your inventory.  Press YES to use existing "
                               "inventory Item or NO to add the item to inventory as new item",
                           Buttons::yes_no);
}

// The user's own item of that name, if it is to be used; else 0.
i16 item_to_use(const std::string& name) {
    const i16 found = name.empty() ? i16{0} : find_item_by_name(name);
    const RowRef item(Subject::items, found);
    if (item.now() == 0 || ask_about_item(name) != Answer::yes) return 0;
    return item.now();
}

// 0 where no slot is free.
i16 add_item(ItemBlock& block, ImportReferences& references) {
    const i16 slot = find_free_item_slot();
    if (items[slot].in_use != 0) return 0;
    references.settle(block);
    block.item.category = general_catagory;
    begin_usage_history(slot);
    items[slot] = block.item;
    item_details[slot] = block.detail;
    first_lot_from_item(slot);
    return slot;
}

// What is written on the screen for the recipe that is to be overwritten goes before it.
bool settle_screen(i16 slot) {
    ports::Mealbuilder* screen = mealbuilder();
    return screen == nullptr || screen->get_mealid() != slot || screen->save_document();
}

// No text is no file: an empty one could not be read.
void store_text(i16 slot, const std::string& document) {
    if (document.empty()) return meal_documents[slot].clear();
    store_document(slot, document);
}

class RecipeImport {
  public:
    RecipeImport(const std::string& path, i16 category) : path_(path), category_(category) {}

    void run();
    void note(const Fault& fault);

    // 0 when it did not come in whole.
    i16 recipe() const { return is_complete_ ? target_.now() : i16{0}; }
    std::string outcome() const;

  private:
    bool unpack_for(i16 free_slot);
    bool choose_target(i16 free_slot);
    bool choose_existing(i16 found, i16 free_slot);
    bool choose_new(i16 free_slot, const std::string& name);
    bool end_for(const char* reason);

    void take_head();
    void take_unit(const std::string& name);
    i64 take_ingredients();
    bool take_ingredient(i16 place, ItemBlock& block);
    void take_tail(i64 position);
    void show() const;

    std::string path_;
    i16 category_;
    std::unique_ptr<File> file_;
    RecipeHead head_;
    RowRef target_;
    std::optional<Names> names_;
    int taken_ = 0;      // ingredients that are in
    int new_items_ = 0;  // of them
    bool is_complete_ = false;
    std::string reason_;  // why it is not
};

bool RecipeImport::end_for(const char* reason) {
    reason_ = reason;
    return false;
}

void RecipeImport::run() {
    const PortableFileRemoval removal;
    const i16 free_slot = find_free_meal();
    if (!unpack_for(free_slot)) return;
    head_ = read_recipe_head(*file_);
    if (meals[free_slot].in_use == 0) meals[free_slot].name = head_.name;
    reason_ = "it was cancelled";
    if (!choose_target(free_slot)) return;
    reason_.clear();
    take_head();
    if (const i64 tail = take_ingredients()) take_tail(tail);
}

bool RecipeImport::unpack_for(i16 free_slot) {
    if (meals[free_slot].in_use != 0) return end_for("there is no room for another recipe");
    reason_ = "it was cancelled";
    file_ = unpack_portable(path_, "rpf file extraction watchdog timer overflow.");
    if (!file_) return end_for("it took too long");
    project_modified = i16_true;
    return true;
}

// --- which slot it gets

bool RecipeImport::choose_target(i16 free_slot) {
    const i16 found = head_.name.empty() ? i16{0} : find_meal_by_name(head_.name);
    if (found == 0) return choose_new(free_slot, head_.name);
    const RowRef existing(Subject::recipes, found);
    switch (ask_about_recipe()) {
        case Answer::yes:
            return choose_existing(existing.now(), free_slot);
        case Answer::no: {
            const auto name =
                boxes().input("Please enter new Recipe Name:", "Recipe Import Name", "");
            return name && !trim(*name).empty() && choose_new(free_slot, std::string(trim(*name)));
        }
        default:
            return false;
    }
}

bool RecipeImport::choose_existing(i16 found, i16 free_slot) {
    const RowRef existing(Subject::recipes, found);
    if (meals[free_slot].in_use == 0) meals[free_slot] = {};
    if (!settle_screen(found)) return end_for("the text on the screen could not be saved");
    target_ = RowRef(Subject::recipes, existing.now());
    return target_.now() != 0 || end_for("the recipe to overwrite is not there any more");
}

// Another recipe may have taken the slot while the user was asked.
bool RecipeImport::choose_new(i16 free_slot, const std::string& name) {
    const i16 slot = meals[free_slot].in_use == 0 ? free_slot : find_free_meal();
    if (meals[slot].in_use != 0) return end_for("there is no room for another recipe");
    meals[slot] = {};
    meal_documents[slot].clear();  // of a recipe that was deleted
    meals[slot].name = name;
    meals[slot].in_use = 1;
    target_ = RowRef(Subject::recipes, slot);
    return true;
}

// --- what comes in

void RecipeImport::take_head() {
    names_.emplace();
    take_unit(head_.serving_unit);
    meal_serving_size[target_.now()] = head_.serving_size;
}

// No name, and a name that found no room, leave what was there.
void RecipeImport::take_unit(const std::string& name) {
    const i16 unit = names_->rows().unit(name);
    if (unit != 0) meals[target_.now()].serving_size_units = unit;
}

// The position of the tail; 0 where it ends early.
i64 RecipeImport::take_ingredients() {
    i64 position = first_recipe_block;
    for (i16 place = 1; place <= head_.ingredients; ++place) {
        ItemBlock block;
        position = read_item_block(*file_, position, block, BlockKind::ingredient);
        if (!take_ingredient(place, block)) return 0;
    }
    return position;
}

bool RecipeImport::take_ingredient(i16 place, ItemBlock& block) {
    const std::string name = without_padding(block.item.name.stored());
    block.item.name = name;
    i16 item = item_to_use(name);
    const i16 slot = target_.now();
    if (slot == 0) return end_for("the recipe is not there any more");
    if (item == 0) {
        item = add_item(block, names_->rows());
        if (item == 0) return end_for("there is no room for another item");
        ++new_items_;
    }
    meals[slot].ingredient_item[static_cast<std::size_t>(place)] = item;
    meals[slot].ingredient_qty[static_cast<std::size_t>(place)] = block.ingredient_qty;
    ++taken_;
    return true;
}

void RecipeImport::take_tail(i64 position) {
    const RecipeTail tail = read_recipe_tail(*file_, position);
    const i16 slot = target_.now();
    take_unit(tail.serving_unit);
    store_text(slot, tail.document);
    meals[slot].category = category_;
    is_complete_ = true;
    show();
}

void RecipeImport::show() const {
    ports::Mealbuilder* screen = mealbuilder();
    if (screen == nullptr) return;
    const bool may_leave = screen->save_document();
    if (may_leave) screen->setid(target_.now());
    screen->populate_tree();
    if (may_leave) screen->populate_tree_list(target_.now());
}

// --- what is told

void RecipeImport::note(const Fault& fault) {
    const bool is_missing = fault.number == fault_number::file_not_found && !files().exists(path_);
    const bool is_damaged = fault.number == fault_number::bad_record_number ||
                            fault.number == fault_number::file_not_found;
    reason_ = is_missing   ? "it is not there"
              : is_damaged ? "it is no recipe file, or a damaged one"
                           : fault.description;
}

std::string RecipeImport::outcome() const {
    const std::string file = shown_file_name(path_);
    const std::string why = reason_.empty() ? "" : ": " + reason_;
    if (!names_) return file + " was not imported" + why + ".";
    const std::string recipe =
        "the recipe " + in_quotes(std::string(meals[target_.now()].name.trimmed()));
    if (is_complete_) {
        return "Imported " + recipe + " with " + counted(taken_, "ingredient", "ingredients") +
               ": " + counted(new_items_, "new item", "new items") + ", " +
               std::to_string(taken_ - new_items_) + " of yours." + names_->words();
    }
    if (target_.now() == 0) {
        return file + " was not imported" + why + "; " +
               counted(new_items_, "new item is in.", "new items are in.");
    }
    return "Only a part of " + file + " is in: " + recipe + " with " + std::to_string(taken_) +
           " of " + counted(head_.ingredients, "ingredient", "ingredients") + " (" +
           counted(new_items_, "new item", "new items") + ") and not its text" + why + "." +
           names_->words();
}

}  // namespace

i16 Import_RPF(const std::string& file, i16 category) noexcept {
    i16 imported = 0;
    trap_in_module([&] {
        RecipeImport import(file, category);
        trap([&] { import.run(); },
             [&](const Fault& fault) {
                 import.note(fault);
                 show_fault("Import_RPF" + std::to_string(fault.number));
             });
        say(import.outcome());
        imported = import.recipe();
    });
    return imported;
}

}  // namespace tavernook
