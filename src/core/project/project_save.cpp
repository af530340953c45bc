#include "core/project/project_save.h"

#include "basics/text.h"
#include "core/program_state.h"
#include "core/project/companions.h"
#include "core/project/previous_version.h"
#include "core/project_data.h"
#include "core/project_file/project_file_writer.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// A save starts from no file at all; that there was none to delete is no error.
void delete_project_file() {
    set_previous_version_aside(project_path);
    try {
        files().remove(project_path);
    } catch (const Fault& fault) {
        if (fault.number != fault_number::file_not_found) throw;
    }
}

void write_sections_and_setup(File& file) {
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

void flush_project_file() {
    files().open(project_path, OpenMode::read_write)->flush();
    files().flush_folder(folder_of(project_path));
    project_file_is_whole(project_path);
    drop_previous_version(project_path);
}

void write_project() {
    main_window().set_status(activity_panel, "Saving Project...");
    prepare_companions();
    delete_project_file();
    write_sections_and_setup(*files().open(project_path, OpenMode::read_write));
    save_progress().hide();
    write_blocks();
    flush_project_file();
    commit_companions();
}

}  // namespace

bool Project_Save(const i16& silent) noexcept {
    const auto work = [&] {
        save_progress().load("Saving Project", "Saving Project....");
        if (silent == 0) save_progress().show();
        save_progress().workbar(0);
        write_project();
    };
    const bool saved = trap(work, [](const Fault& fault) {
        save_progress().hide();
        show_fault("There has been a file access error.  The error number is ERROR #: " +
                   std::to_string(fault.number));
    });
    save_progress().unload();
    return saved;
}

}  // namespace tavernook
