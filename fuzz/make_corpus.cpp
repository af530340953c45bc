// Writes the seeds of fuzz/corpus: make_corpus FOLDER. Run it again when the formats change.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "core/project/settings_file_format.h"
#include "memory_files.h"
#include "platform_services/cabinet_files.h"
#include "reports/report_file_format.h"
#include "transfer/recipe_bytes.h"
#include "whole_file.h"

namespace tavernook {

namespace {

void write_seed(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

void put_position(std::string& bytes, i32 slot, i32 position) {
    store_little_endian(bytes.data() + slot - 1, position);
}

// The project's front up to the item details, which are zeros as most of what follows.
std::string project_seed() {
    MemoryFile file;
    write_whole(file);
    if (project_created == 0) {
        const i32 wams_position = project_file::read_position(file, project_file::wams_slot);
        put_position(file.bytes, project_file::lots_slot, 0);
        put_position(file.bytes, project_file::older_wams_slot, wams_position);
    }
    const i64 details = project_file::read_position(
        file, project_header.setup_position + project_file::setup_item_details_slot);
    std::string seed(4, '\0');
    store_little_endian(seed.data(), static_cast<i32>(file.length()));
    return seed + file.bytes.substr(0, static_cast<std::size_t>(details));
}

// A file that ends with its documents, as if from before there were blocks: quick to read, so that
// the fuzzer gets far with it.
std::string seed_without_blocks() {
    std::string seed = project_seed();
    std::string file = seed.substr(4);
    const i32 setup = project_header.setup_position;
    for (const i32 slot :
         {project_file::wams_slot, project_file::lots_slot,
          setup + project_file::setup_item_details_slot, setup + project_file::setup_strings_slot,
          setup + project_file::setup_day_quantities_slot,
          setup + project_file::setup_meal_servings_slot}) {
        put_position(file, slot, 0);
    }
    return seed.substr(0, 4) + file;
}

void fill_each_section() {
    items[3].in_use = 1;
    items[3].store_order = 4;
    items[3].on_shopping_list = 1;
    items[3].shopping_quantity = 2.5;
    items[10000].in_use = 1;
    catagories[100].in_use = 1;
    meals[9].in_use = 1;
    stores[4].in_use = 1;
    days[8].in_use = 1;
    meal_documents[9] = "soup.rtf";
    wams[2].in_use = -1;
    wams[2].text = "1 cup = 8 oz";
    lots.grow(3);
    lots[3].lot_quantity[1] = 12.5;
}

void write_project_seeds(const std::filesystem::path& folder) {
    reset_project_tables();
    write_seed(folder / "undated", project_seed());
    project_created = 45427;
    write_seed(folder / "empty_older_form", project_seed());
    file_version = project_file::current_file_version;
    write_seed(folder / "empty", project_seed());
    fill_each_section();
    write_seed(folder / "one_of_each", project_seed());
    write_seed(folder / "without_blocks", seed_without_blocks());
    file_version = 0;
    write_seed(folder / "one_of_each_older_form", project_seed());
}

void write_settings_seeds(const std::filesystem::path& folder) {
    SettingsRecord record;
    write_seed(folder / "blank", encode_settings(record, ""));
    record.recent_projects = {"/home/me/home.tvk", "/home/me/cabin.tvk"};
    record.recent_count = 2;
    record.hide_welcome_dialog = -1;
    record.geometry = {768, 1024, 40, -8};
    write_seed(folder / "two_projects", encode_settings(record, ""));
    write_seed(folder / "longer", encode_settings(record, std::string(4000, 'x')));
    write_seed(folder / "cut", encode_settings(record, "").substr(0, 300));
}

void write_report_seeds(const std::filesystem::path& folder) {
    const auto filter = std::make_unique<ReportFilter>();
    begin_report_filter(*filter);
    const ReportLook look;
    const std::string plain = encode_report(ReportName("All"), *filter, look, "");
    write_seed(folder / "plain", plain);
    write_seed(folder / "longer", encode_report(ReportName("All"), *filter, look, plain + "rest"));
    write_seed(folder / "cut", plain.substr(0, 1100));
    filter->search_strings[1] = "*milk*";
    filter->search_strings[5] = ">12";
    filter->search_strings[31] = "12:*";
    filter->search_strings[77] = "*AM";
    write_seed(folder / "patterns", encode_report(ReportName("Milk"), *filter, look, ""));
}

std::string list_seed(i16 rows, const std::vector<i16>& numbers) {
    std::string bytes(20101, '\0');
    store_little_endian<i16>(bytes.data() + 9, rows);
    for (std::size_t column = 0; column < 7; column += 2) {
        store_little_endian<i16>(bytes.data() + 19 + 10 * column, i16_true);
    }
    for (std::size_t row = 0; row < numbers.size(); ++row) {
        store_little_endian<i16>(bytes.data() + 101 + 2 * row, numbers[row]);
    }
    return bytes;
}

void write_list_seeds(const std::filesystem::path& folder) {
    write_seed(folder / "empty", list_seed(0, {}));
    write_seed(folder / "three", list_seed(3, {4, 10000, 17}));
    write_seed(folder / "no_items", list_seed(4, {0, -1, 10001, 32767}));
    write_seed(folder / "count_beyond", list_seed(32767, {4}));
    write_seed(folder / "cut", list_seed(3, {4, 10000, 17}).substr(0, 104));
}

void write_scan_seeds(const std::filesystem::path& folder) {
    write_seed(folder / "three", "0123,2,Auto\r\n999,1.5,Lot B\r\n5,,\r\n");
    write_seed(folder / "utf8",
               "\xEF\xBB\xBF"
               "K\xC3\xA4se, 2 ,K\xC3\xBChl\n\n");
    write_seed(folder / "returns", "1,1,A\r2,-3,B, and C\r\r");
    write_seed(folder / "no_lot", "1,2,\n123,4\n");
    write_seed(folder / "long", "1,1,A\n2,1," + std::string(1200, 'B'));
}

// The first byte tells what is done with the rest (backup_file_fuzz.cpp).
void write_backup_seeds(const std::filesystem::path& folder) {
    const std::string zero(1, '\0');
    const std::string runs = "x\1" + zero + "\2" + zero + "\7A\2" + zero + "\1" + zero + "\x09 ";
    write_seed(folder / "decode", zero + std::string(3, '\0') + runs + zero + "\2");
    write_seed(folder / "encode",
               "\1" + std::string(3, '\0') + "abb" + std::string(9, 'A') + "tail");
    // 31,990 bytes in front, so that the end of a block comes soon.
    write_seed(folder / "border", "\1" + zero + "\xF6\x7C" + std::string(12, ' ') + "xx       y");
}

// The first byte answers the questions (package_file_fuzz.cpp). Two texts, the first of which may
// be there already, behind a project of 120 bytes.
void write_package_seeds(const std::filesystem::path& folder) {
    const std::string zeros(160, '\0');
    const auto number = [](int value) { return std::string(1, static_cast<char>(value)); };
    const auto text = [&](const std::string& name, const std::string& bytes) {
        const std::string length = number(static_cast<int>(name.size())) + zeros.substr(0, 1);
        return number(static_cast<int>(bytes.size())) + zeros.substr(0, 9) + length +
               zeros.substr(0, 8) + number(8) + zeros.substr(0, 1) + length + name +
               zeros.substr(0, 6) + bytes;
    };
    const auto front = [&](int texts) {
        return number(120) + zeros.substr(0, 8) + number(texts) + zeros.substr(0, 1) +
               zeros.substr(0, 88) + std::string(21, 'p');
    };
    const std::string two = front(2) + text("soup.rtf", std::string(60, 'S')) + zeros.substr(0, 1) +
                            text("b.rtf", "Bake.") + zeros.substr(0, 40);
    write_seed(folder / "no_text", "1" + front(0) + std::string(99, 'q'));
    write_seed(folder / "overwrite", "1" + two);
    write_seed(folder / "keep", "0" + two);
}

// The first byte answers the boxes (recipe_file_fuzz.cpp).
void write_recipe_seeds(const std::filesystem::path& folder) {
    RecipeBytes recipe;
    write_seed(folder / "empty", std::string(1, '\0') + recipe.bytes());
    recipe.ingredients = {IngredientBytes{}, IngredientBytes{}};
    recipe.ingredients[0].name = "Salt";
    write_seed(folder / "overwrite", std::string(1, '\0') + recipe.bytes());
    write_seed(folder / "beside", '\1' + recipe.bytes());
    recipe.name = "Broth";
    recipe.document = "";
    write_seed(folder / "new", '\4' + recipe.bytes());
}

// The first byte tells what is done with the rest (cabinet_fuzz.cpp).
void write_cabinet_seeds(const std::filesystem::path& folder) {
    CabinetFiles cabinets;
    for (const int size : {0, 1, 40'000}) {
        MemoryFile source(std::string(static_cast<std::size_t>(size), 'A'));
        MemoryFile cabinet;
        cabinets.compress(source, "temppf.tmp", cabinet, [](int) {});
        write_seed(folder / ("unpack_" + std::to_string(size)), '\1' + cabinet.bytes);
    }
    write_seed(folder / "pack", std::string(1, '\0') + "some text, some text");
}

void write_cue_cat_seeds(const std::filesystem::path& folder) {
    write_seed(folder / "grocery", ".C3nZC3nZC3nZD3b6ChbZDxv7.fHmc.C3D1Dxr2C3nZE3n7.");
    write_seed(folder / "book", ".C3nZC3nZC3n2C3j1DNnWENn2.cGf2.ENr7C3v7D3T3ENj3C3zYDNnZ.");
    write_seed(folder / "two_fields", ".C3nZ.fHmc.");
    write_seed(folder / "long", "..." + std::string(120, 'Z') + "+-.");
}

void write_template_seeds(const std::filesystem::path& folder) {
    write_seed(folder / "week", "<td>%1% %a%</td><td>%ct1% %$1% %2%</td>%title% %1%");
    write_seed(folder / "per_cents", "width=\"100%\" %%1%% %2 %42%% 50%");
}

void write_pattern_seeds(const std::filesystem::path& folder) {
    const auto write = [&](const char* name, f64 number, const std::string& rest) {
        std::string bytes(sizeof number, '\0');
        std::memcpy(bytes.data(), &number, sizeof number);
        write_seed(folder / name, bytes + rest);
    };
    write("part", 12.5, "*milk*\nWhole Milk   ");
    write("start", 1, "12 *\n12 oz");
    write("end", 45427, "* oz\n12 oz");
    write("whole", 0, "12:00:00 am\n");
    write("number", -3, ">-3.5\n7 bags");
}

// Without the CRCs, which the target adds: an answer to its framer, then those of a whole reading.
void write_scanner_seeds(const std::filesystem::path& folder) {
    const std::string begun = "\x06\x02";
    const std::string serial_number(8, '\x01');
    const std::string zero(1, '\0');
    const auto code = [](char type, const std::string& digits) {
        return std::string(1, static_cast<char>(digits.size() + 5)) + type + digits + "time";
    };
    const auto parameter = [&](char number) { return begun + '\x02' + number + '\x01' + zero; };
    const std::string interrogation = begun + "\x01\x16" + serial_number + "VERSION1" + zero;
    const std::string no_codes = begun + serial_number + zero;
    const std::string codes =
        begun + serial_number + code('\x08', "012345678905") + code('\x01', "TVK7") + zero;
    const auto with_length = [](const std::string& part) {
        return static_cast<char>(part.size()) + part;
    };
    const auto reading = [&](const std::string& upload) {
        std::string conversation = "\x1D";
        for (const std::string& part :
             {interrogation, parameter(16), parameter(35), upload, interrogation, begun + zero}) {
            conversation += with_length(part);
        }
        return conversation;
    };
    write_seed(folder / "interrogation", "\x1C" + interrogation);
    write_seed(folder / "codes", "\x1D" + codes);
    write_seed(folder / "parameter", "\x1E" + parameter(16));
    write_seed(folder / "done", "\x1F" + begun + zero);
    write_seed(folder / "reading", reading(codes));
    write_seed(folder / "empty_reading", reading(no_codes));
    write_seed(folder / "refusals", "\x01\x01\x07\x01\x08\x01\x05");
    write_seed(folder / "pulled_out", std::string("\x01\x04gone"));
}

}  // namespace

}  // namespace tavernook

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_corpus FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    tavernook::write_project_seeds(folder / "project_file");
    tavernook::write_settings_seeds(folder / "settings_file");
    tavernook::write_report_seeds(folder / "report_file");
    tavernook::write_list_seeds(folder / "list_file");
    tavernook::write_scan_seeds(folder / "scan_file");
    tavernook::write_cue_cat_seeds(folder / "cue_cat");
    tavernook::write_backup_seeds(folder / "backup_file");
    tavernook::write_package_seeds(folder / "package_file");
    tavernook::write_recipe_seeds(folder / "recipe_file");
    tavernook::write_cabinet_seeds(folder / "cabinet");
    tavernook::write_template_seeds(folder / "page_template");
    tavernook::write_pattern_seeds(folder / "report_pattern");
    tavernook::write_scanner_seeds(folder / "scanner_reply");
    return 0;
}
