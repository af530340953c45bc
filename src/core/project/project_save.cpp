#include "core/project/project_save.h"

#include <memory>

#include "basics/text.h"
#include "core/program_state.h"
#include "core/project/companions.h"
#include "core/project/known_files.h"
#include "core/project/names_beside.h"
#include "core/project/other_content.h"
#include "core/project/previous_version.h"
#include "core/project_data.h"
#include "core/project_file/project_file_writer.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// Replacing a file needs no right to write it: without the question it would be replaced. The box
// has only a number to tell.
void refuse_write_protected_file() {
    if (!files().is_write_protected(project_path)) return;
    main_window().set_status(
        message_panel, shown_file_name(project_path) + " is write-protected; nothing was saved.");
    throw Fault(fault_number::permission_denied);
}

// A save starts from no file at all; that there was none to delete is no error. The result is the
// file whose rights the new one takes: the previous version, or what is known of one that has gone,
// or under a new name the project that it comes from. The copy tells as much as that one.
std::string delete_project_file() {
    const bool was_here = has_been_here(project_path);
    set_previous_version_aside(project_path);
    try {
        files().remove(project_path);
    } catch (const Fault& fault) {
        if (fault.number != fault_number::file_not_found) throw;
    }
    const std::string previous = previous_version_path(project_path);
    return was_here || files().exists(previous) ? previous : project_left();
}

void write_sections_and_setup(File& file) {
    project_file::mark_in_writing(file);
    project_file::write_front_words(file);
    save_progress().set_label("Saving Items to File");
    i32 position = project_file::write_item_section(file, project_file::items_position);
    save_progress().workbar(25);
    save_progress().set_label("Saving Catagories to file.");
    position = project_file::write_catagory_section(file, position);
    save_progress().workbar(50);
    save_progress().set_label("Saving Meals to file.");
    position = project_file::write_meal_section(file, position);
    save_progress().workbar(60);
    save_progress().set_label("Saving Units to file.");
    position = project_file::write_unit_section(file, position);
    save_progress().workbar(70);
    save_progress().set_label("Saving Stores to file.");
    position = project_file::write_store_section(file, position);
    save_progress().workbar(80);
    save_progress().set_label("Saving day plans to file.");
    position = project_file::write_day_section(file, position);
    save_progress().set_label("Saving project setup to file.");
    position = project_file::write_setup_block(file, position);
    save_progress().workbar(95);
    save_progress().set_label("Saving Project Information to File.");
    project_file::write_header(file);
    save_progress().set_label("Saving project Recipes to file.");
    project_file::write_documents(file, position);
    save_progress().workbar(97);
    // Again, now with the position of the documents.
    save_progress().set_label("Saving Project Information to File.");
    project_file::write_header(file);
    save_progress().workbar(100);
}

void write_blocks() {
    for (void (*write_block)(File&) :
         {project_file::write_wam_block, project_file::write_lot_block,
          project_file::write_item_detail_block, project_file::write_string_block,
          project_file::write_day_quantity_block, project_file::write_meal_serving_block}) {
        write_block(*files().open(project_path, OpenMode::read_write));
    }
}

// The mark goes when all else is on the disk, so that a file without it is whole. Beside a whole
// content it says nothing: that it could not go fails no save.
void take_mark_away(File& file) {
    tried([&] {
        project_file::mark_as_written(file);
        file.flush();
    });
}

// Nothing fails any more when the content and its name are on the disk.
void finish_project_file(const std::string& model) {
    {
        const std::unique_ptr<File> file = files().open(project_path, OpenMode::read_write);
        files().copy_attributes(model, project_path);
        file->flush();
        files().flush_folder(folder_of(project_path));
        take_mark_away(*file);
    }
    if (const auto stamp = stamp_if_readable(project_path)) {
        project_file_is_known(project_path, *stamp);
    }
    drop_previous_version(project_path);
}

void write_project() {
    main_window().set_status(activity_panel, "Saving Project...");
    prepare_companions();
    const std::string model = delete_project_file();
    files().copy_attributes(model, project_path);
    write_sections_and_setup(*files().open(project_path, OpenMode::read_write));
    save_progress().hide();
    write_blocks();
    finish_project_file(model);
    commit_companions();
}

// What lies there now may be deleted by the next save, and nothing that another program puts there.
void know_what_is_left() {
    if (has_been_here(project_path)) return;  // nothing has been moved yet
    if (const auto stamp = stamp_if_readable(project_path)) {
        project_file_is_known(project_path, *stamp, FileEnd::unfinished);
    }
}

// False when the user does not want it.
bool save_project(i16 silent) {
    refuse_write_protected_file();
    if (!keep_other_content(project_path)) return false;
    save_progress().load("Saving Project", "Saving Project....");
    if (silent == 0) save_progress().show();
    save_progress().workbar(0);
    write_project();
    return true;
}

}  // namespace

bool Project_Save(const i16& silent) noexcept {
    bool saved = false;
    trap([&] { saved = save_project(silent); },
         [](const Fault& fault) {
             save_progress().hide();
             know_what_is_left();
             show_fault("There has been a file access error.  The error number is ERROR #: " +
                        std::to_string(fault.number));
         });
    save_progress().unload();
    return saved;
}

}  // namespace tavernook
