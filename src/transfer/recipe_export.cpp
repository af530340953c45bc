#include <optional>
#include <utility>

#include "basics/fault.h"
#include "basics/text.h"
#include "core/changes.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "transfer/exchange_words.h"
#include "transfer/export_target.h"
#include "transfer/item_block.h"
#include "transfer/portable_file.h"
#include "transfer/recipe_exchange.h"
#include "transfer/recipe_file.h"

namespace tavernook {

namespace {

constexpr const char* extension = ".rpf";

// Empty when the recipe's file is missing.
std::optional<std::string> text_of(i16 slot) {
    try {
        return stored_document(slot).bytes;
    } catch (const Fault& fault) {
        if (fault.number != fault_number::file_not_found) throw;
        return {};
    }
}

RecipeHead head_of(i16 slot) {
    const std::string_view unit = row_or_none(units, meals[slot].serving_size_units).name.trimmed();
    return {std::string(meals[slot].name.trimmed()), std::string(unit), meal_serving_size[slot]};
}

// Returns how many ingredients it has.
i16 write_recipe(File& file, i16 slot, std::string document) {
    const MealRecord& meal = meals[slot];
    RecipeHead head = head_of(slot);
    i64 position = first_recipe_block;
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        if (!is_live_row(items, meal.ingredient_item[place])) continue;
        ItemBlock block = block_of_item(meal.ingredient_item[place]);
        block.ingredient_qty = meal.ingredient_qty[place];
        position = write_item_block(file, position, block, BlockKind::ingredient);
        ++head.ingredients;
    }
    write_recipe_tail(file, position, {std::move(document), head.serving_unit});
    write_recipe_head(file, head);
    return head.ingredients;
}

// Empty when the user thought better of it.
std::string chosen_target() {
    const std::string initial = folder_of(project_path) + "/*.rpf";
    const std::string chosen = file_dialogs().save_file(
        {"Save Recipe Portable Format", "Recipe Portable Format Files (*.rpf)|*.rpf", initial});
    return chosen == initial ? std::string()
                             : export_target(chosen, extension, "nothing was exported");
}

void export_to(const std::string& target, i16 slot) {
    const std::optional<std::string> text = text_of(slot);
    i16 ingredients = 0;
    pack_portable(target, [&](File& file) {
        ingredients = write_recipe(file, slot, text.value_or(std::string()));
    });
    say("Exported the recipe " + in_quotes(std::string(meals[slot].name.trimmed())) + " with " +
        counted(ingredients, "ingredient", "ingredients") +
        (text ? "" : ", but without its text, which is not there,") + " as " +
        shown_file_name(target) + ".");
}

void export_recipe(i16 slot) {
    const RowRef recipe(Subject::recipes, slot);
    if (recipe.now() == 0) return;
    const std::string target = chosen_target();
    if (target.empty()) return;
    if (recipe.now() == 0) return say("The recipe is not there any more; nothing was exported.");
    std::string why = ": it was cancelled";
    const auto on_fault = [&](const Fault& fault) {
        why = ": " + fault.description;
        show_fault("Export_RPF" + std::to_string(fault.number));
    };
    if (trap([&] { export_to(target, slot); }, on_fault)) return;
    const std::string name = shown_file_name(target);
    say("The recipe was not exported" + why + "; " +
        (files().exists(target) ? name + " is as it was." : "there is no " + name + "."));
}

}  // namespace

void Export_RPF(i16 slot) noexcept {
    trap_in_module([slot] { export_recipe(slot); });
}

}  // namespace tavernook
