#include "core/project/early_end.h"

#include "core/project/names_beside.h"

namespace tavernook {

namespace {

using project_file::Missing;

const char* words_for(Missing part) {
    switch (part) {
        case Missing::wams:
            return "weights and measures";
        case Missing::lots:
            return "lots";
        case Missing::item_details:
            return "details of the items";
        case Missing::strings:
            return "brands, places and notes of the items";
        case Missing::day_quantities:
            return "amounts of the planned days";
        case Missing::meal_servings:
            return "servings of the recipes";
        case Missing::last_meal_servings:
            return "servings of the last recipes";
    }
    return "";
}

}  // namespace

std::string early_end_message(const std::string& project_path,
                              const std::vector<Missing>& missing) noexcept {
    std::string parts;
    for (const Missing part : missing) {
        if (!parts.empty()) parts += part == missing.back() ? " and " : ", ";
        parts += words_for(part);
    }
    return "The project file " + shown_file_name(project_path) + " ends too early: the " + parts +
           " are missing; the first save keeps the file as it is now beside the project.";
}

}  // namespace tavernook
