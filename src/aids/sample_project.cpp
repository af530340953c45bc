#include "aids/sample_project.h"

#include <algorithm>

#include "aids/project_dates.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/file_management.h"
#include "core/project/main_commands.h"
#include "core/project/previous_version.h"
#include "core/project/recent_files.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

ShippedSample shipped;

bool is_project(const std::string& name) {
    return name == sample_file_name;
}

bool is_missing(const std::string& name) {
    const std::string path = in_program_folder(name);
    return !files().is_taken(path) && !(is_project(name) && previous_version_exists(path));
}

void write_and_flush(const std::string& path, const std::string& bytes) {
    const std::unique_ptr<File> file = files().open(path, OpenMode::read_write);
    file->write(0, bytes);
    file->flush();
}

// Written beside its place and then renamed, so that no half file ever bears the name. A name that
// is lost with the power comes back at the next start, so the folder is not flushed: the first
// start shall not wait for the disk. What an interrupted start left beside it goes.
void write_whole(const std::string& path, const std::string& bytes) {
    const std::string unfinished = path + ".new";
    if (files().is_taken(unfinished)) files().remove(unfinished);
    try {
        write_and_flush(unfinished, bytes);
        files().rename(unfinished, path);
    } catch (const Fault&) {
        tried([&] { files().remove(unfinished); });
        throw;
    }
}

void place(const std::string& name, Date today) {
    if (!is_missing(name)) return;
    std::string bytes = shipped.bytes(name);
    if (is_project(name)) {
        const int days = static_cast<int>(date_alone(today) - sample_first_day);
        bytes = project_moved_by_days(std::move(bytes), days);
    }
    const std::string path = in_program_folder(name);
    files().make_folder(folder_of(path));
    write_whole(path, bytes);
}

void open_sample() {
    (void)lay_out_sample_project(platform_clock().now());
    const std::string path = files().behind_link(in_program_folder(sample_file_name));
    if (!files().exists(path) && !previous_version_exists(path)) {
        throw Fault(fault_number::file_not_found);
    }
    reset_project_tables();
    project_path = path;
    project_name = "Sample17.tvk";
    Project_Open();
    if (project_load_failed != 0) return give_up_project();
    load_recent_menu();
}

}  // namespace

void set_shipped_sample(ShippedSample sample) noexcept {
    // A project without its documents would show empty recipes.
    std::stable_partition(sample.names.begin(), sample.names.end(),
                          [](const std::string& name) { return !is_project(name); });
    shipped = std::move(sample);
}

bool lay_out_sample_project(Date today) noexcept {
    bool complete = true;
    for (const std::string& name : shipped.names) {
        complete = tried([&] { place(name, today); }) && complete;
    }
    return complete;
}

void SeedProject() noexcept {
    if (project_open != 0) return;
    trap_in_main("SeedProject", open_sample);
}

}  // namespace tavernook
