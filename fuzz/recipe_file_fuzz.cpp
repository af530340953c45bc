// The plain file of a recipe file through the whole import, into a project that has items and a
// recipe already. The first byte says how the boxes are answered. Whatever comes: the recipe holds
// items that are there, items that were there stay as they were, and no file is written but the
// text of the recipe.
#include <cstdint>
#include <cstdlib>

#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/project_file/project_file_format.h"
#include "core/rows.h"
#include "kept_files.h"
#include "platform/cabinets.h"
#include "platform/platform.h"
#include "quiet_platform.h"
#include "recipes/documents.h"
#include "transfer/recipe_exchange.h"

namespace tavernook {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// Each question gets the next answer of the byte.
class AnsweringBoxes : public Boxes {
  public:
    unsigned answers = 0;

    Answer message(std::string_view, Buttons buttons, std::string_view, DefaultButton) override {
        const unsigned answer = answers % 3;
        answers = answers / 3 + answers % 3 * 81;
        if (buttons == Buttons::ok) return Answer::ok;
        if (answer == 0) return Answer::yes;
        return answer == 1 || buttons == Buttons::yes_no ? Answer::no : Answer::cancel;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return answers % 5 == 0 ? std::nullopt : std::optional<std::string>("Broth");
    }
};

// The bytes as they are.
class PlainCabinets : public Cabinets {
  public:
    void compress(File&, std::string_view, File&, const CabinetProgress&) override {}
    std::unique_ptr<Extraction> extract(std::unique_ptr<File> cabinet, std::string_view,
                                        std::unique_ptr<File> target, i64) override {
        std::string bytes(static_cast<std::size_t>(cabinet->length()), '\0');
        cabinet->read(0, bytes.data(), bytes.size());
        target->write(0, bytes);
        return std::make_unique<Ended>(std::move(target));
    }

  private:
    class Ended : public Extraction {
      public:
        explicit Ended(std::unique_ptr<File> target) : target_(std::move(target)) {}
        int percent() noexcept override { return 100; }
        bool has_ended() noexcept override { return true; }
        std::unique_ptr<File> finish() override { return std::move(target_); }

      private:
        std::unique_ptr<File> target_;
    };
};

KeptFiles kept_files;
AnsweringBoxes answering_boxes;
PlainCabinets plain_cabinets;
QuietPlatform silence;
const std::string path = "/home/me/soup.rpf";

// All that an import of one recipe can reach: whole tables would take most of the time.
void forget_the_last() {
    constexpr i16 reach = ingredient_places + 2;
    for (i16 slot = 1; slot <= reach; ++slot) {
        items[slot] = {};
        item_details[slot] = {};
    }
    lots.clear();
    for (i16 slot = 1; slot <= 2; ++slot) {
        meals[slot] = {};
        meal_documents[slot].clear();
    }
    for (UnitRecord& unit : units) unit = {};
    for (StoreRecord& store : stores) store = {};
    for (i16 row = 1; row <= 4 * reach; ++row) pooled_strings[row].clear();
}

void begin() {
    forget_the_last();
    items[1].name = "Sugar";
    items[1].in_use = 1;
    meals[1].name = "Soup";
    meals[1].in_use = 1;
    meals[1].ingredient_item[50] = 1;
    look_for_changes();
}

void import(std::string_view input) {
    if (input.empty()) return;
    begin();
    answering_boxes.answers = static_cast<unsigned char>(input.front());
    kept_files.kept = {{path, std::string(input.substr(1))}};
    const ItemRecord sugar = items[1];
    const i16 recipe = Import_RPF(path, 0);
    require(items[1] == sugar);
    require(recipe >= 0 && recipe <= 2);
    require(recipe == 0 || meals[recipe].in_use == 1);
    for (const i16 item : meals[recipe].ingredient_item) {
        require(item == 0 || is_live_row(items, item));
    }
    for (const auto& [name, bytes] : kept_files.kept) {
        require(name == path || name.starts_with("/program/recipes/home00000"));
    }
    restore_documents();
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using namespace tavernook;
    reset_project_tables();
    project_path = "/home/me/home.tvk";
    recipes_folder = "/program/recipes/";
    project_open = i16_true;
    Platform platform = silence.platform();
    platform.boxes = &answering_boxes;
    platform.files = &kept_files;
    platform.cabinets = &plain_cabinets;
    set_platform(platform);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::import({reinterpret_cast<const char*>(data), size});
    return 0;
}
