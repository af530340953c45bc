#include "core/project/file_management.h"

#include <memory>
#include <vector>

#include "basics/code_page.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/audit.h"
#include "core/project/companions.h"
#include "core/project/daily_audit.h"
#include "core/project/early_end.h"
#include "core/project/known_files.h"
#include "core/project/previous_version.h"
#include "core/project/project_claim.h"
#include "core/project/recent_files.h"
#include "core/project_data.h"
#include "core/project_file/project_file_format.h"
#include "core/project_file/project_file_reader.h"
#include "core/project_settings.h"
#include "core/trap.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "shopping/shopping_list.h"

namespace tavernook {

namespace {

using project_file::BlockPositions;

void read_sections_and_setup(File& file, BlockPositions& positions) {
    using Step = void (*)(File&);
    struct Section {
        Step read;
        int percent;
    };
    constexpr Section sections[] = {
        {project_file::read_front, 10},
        {project_file::read_item_section, 20},
        {project_file::read_catagory_section, 30},
        {project_file::read_meal_section, 40},
        {project_file::read_unit_section, 50},
        {project_file::read_store_section, 60},
        {project_file::read_day_section, 70},
    };
    for (const Section& section : sections) {
        section.read(file);
        save_progress().workbar(section.percent);
    }
    older_file_format = truth(file_version != project_file::current_file_version);
    project_file::read_setup_block(file, positions);
    save_progress().workbar(80);
    project_file::read_documents(file);
}

std::unique_ptr<File> open_to_read() {
    return files().open(project_path, OpenMode::read);
}

// A file without a creation date is so old that its weights and measures are found at another
// place, which overlaps the lot position: such a file has no lots.
void read_front_blocks() {
    const bool predates_creation_date = project_created == 0;
    if (predates_creation_date) {
        project_created = date_alone(platform_clock().now());
        scanner_type = 0;
    }
    const i32 slot =
        predates_creation_date ? project_file::older_wams_slot : project_file::wams_slot;
    const i32 wam_position = project_file::read_position(*open_to_read(), slot);
    project_file::read_wam_block(*open_to_read(), wam_position);
    if (predates_creation_date) return;
    const i32 lot_position = project_file::read_position(*open_to_read(), project_file::lots_slot);
    project_file::read_lot_block(*open_to_read(), lot_position);
}

// Blocks that an interrupted save never came to would pass for those that old files lack. Beside a
// previous version only a file that was written to its end counts.
void refuse_unfinished_file(File& file, const BlockPositions& positions) {
    if (!previous_version_exists(project_path)) return;
    if (project_file::ends_with_meal_servings(file, positions.meal_servings)) return;
    throw Fault(fault_number::bad_record_number);
}

// How the file that was read ends.
struct Ending {
    bool whole = false;  // as after a complete save
    bool marked = false;
    std::vector<project_file::Missing> missing;
};

// All of the file into the tables.
Ending read_tables() {
    BlockPositions positions;
    Ending ending;
    {
        const std::unique_ptr<File> file = open_to_read();
        read_sections_and_setup(*file, positions);
        refuse_unfinished_file(*file, positions);
        ending.whole = project_file::ends_with_meal_servings(*file, positions.meal_servings);
        ending.marked = project_file::is_marked_in_writing(*file);
        ending.missing = project_file::missing_parts(*file, positions);
    }
    read_front_blocks();
    project_file::read_item_detail_block(*open_to_read(), positions.item_details);
    project_file::read_string_block(*open_to_read(), positions.strings);
    project_file::read_day_quantity_block(*open_to_read(), positions.day_quantities);
    project_file::read_meal_serving_block(*open_to_read(), positions.meal_servings);
    return ending;
}

// True for a file that was written to its end. What another one lacks has been told.
bool read_project() {
    const FileStamp stamp = files().stamp(project_path);
    save_progress().show();
    save_progress().workbar(0);
    const Ending ending = read_tables();
    save_progress().workbar(100);
    const bool ends_early = !ending.missing.empty();
    project_file_is_known(project_path, stamp, ends_early ? FileEnd::early : FileEnd::proper);
    if (ends_early) boxes().message(early_end_message(project_path, ending.missing));
    return ending.whole && !ends_early;
}

// Whether a save came to its end here and what it wrote can be read: a trial reading, after which
// the tables are reset.
bool was_saved_whole() {
    bool whole = false;
    tried([&] {
        const Ending ending = read_tables();
        whole = ending.whole && !ending.marked && ending.missing.empty();
    });
    reset_project_tables();
    return whole;
}

// True when the previous version can go once the project, which is whole, has been read.
bool settle_previous_version() {
    if (!previous_version_exists(project_path)) return false;
    if (was_saved_whole()) return true;
    offer_previous_version(project_path);
    return false;
}

// What a damaged or shortened file lacks is not saved over it unasked.
void audit_at_start(bool file_is_whole) {
    const i16 saves = save_after_audit;
    if (!file_is_whole) save_after_audit = 0;
    audit_inventory();
    build_shopping_list();
    save_after_audit = saves;
}

// From here on the project is open; what the window shows follows.
void bring_screens_up(bool file_is_whole) {
    first_lots_of_all_items();  // before the audit, which takes from them
    if (audit_on_startup != 0) audit_at_start(file_is_whole);
    main_window().set_toolbar_state(2);
    project_open = i16_true;
    show_audit_time();
    save_progress().unload();
    main_window().set_toolbar_captions(show_toolbar_text != 0);
    if (recipes_folder.find_first_not_of(' ') == std::string::npos) {
        recipes_folder = in_program_folder("recipes/");
    }
    main_window().set_title("Tavernook - " + text_from_utf8(project_name));
    main_window().enable_project_menus(true);
    screens().show_meal_plan();
    main_window().enable_timer(true);
    save_recent_project(project_path);
    main_window().set_toolbar_state(2);
}

void tell_why_not_opened(const Fault& fault) {
    switch (fault.number) {
        case fault_number::file_not_found:
            return;
        case fault_number::bad_record_number:
            return show_fault("FileManagement.Project_Open - File Load Error.  Bad Record Number");
        case fault_number::subscript_out_of_range:
            return show_fault("FileManagement.Project_Open - File Corrupted.");
        default:
            return show_fault(module_message(fault));
    }
}

void give_up_opening() {
    project_load_failed = i16_true;
    save_progress().hide();
    save_progress().unload();
}

void open_project() {
    screens().unload_all();
    drop_companions();
    save_progress().load("Opening Project", "Opening Project...Please Wait");
    main_window().set_status(activity_panel, "Opening Project...");
    const std::string path = project_of_previous_version(project_path);
    if (path != project_path) set_project_path(path);
    if (!claim_project(project_path)) return give_up_opening();
    files().remove_left_over(folder_of(project_path));
    forget_project_file(project_path);  // what it was when it was last seen says nothing now
    const std::optional<FileStamp> found = stamp_if_readable(project_path);
    const bool previous_can_go = settle_previous_version();
    if (!files().exists(project_path)) throw Fault(fault_number::file_not_found);
    const bool file_is_whole = read_project();
    if (previous_can_go) drop_previous_version(project_path);
    settle_companions(file_is_whole ? found : FileStamp{});
    bring_screens_up(file_is_whole);
    keep_only_claim(project_path);
}

}  // namespace

void Project_Open() noexcept {
    project_load_failed = i16_false;
    project_open = i16_false;  // the tables no longer hold the project that was
    drop_waiting_audit();
    trap(open_project, [](const Fault& fault) {
        give_up_opening();
        tell_why_not_opened(fault);
    });
}

}  // namespace tavernook
