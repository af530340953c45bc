#include "sample_files.h"

#include <fstream>

#include "aids/sample_project.h"
#include "core/project_file/project_file_writer.h"
#include "platform_disk/disk_files.h"

namespace tavernook::make_sample {

namespace {

void write_sections(File& file) {
    project_file::write_front_words(file);
    i32 position = project_file::write_item_section(file, project_file::items_position);
    position = project_file::write_catagory_section(file, position);
    position = project_file::write_meal_section(file, position);
    position = project_file::write_unit_section(file, position);
    position = project_file::write_store_section(file, position);
    position = project_file::write_day_section(file, position);
    position = project_file::write_setup_block(file, position);
    project_file::write_documents(file, position);
    project_file::write_header(file);
}

void write_blocks(File& file) {
    project_file::write_wam_block(file);
    project_file::write_lot_block(file);
    project_file::write_item_detail_block(file);
    project_file::write_string_block(file);
    project_file::write_day_quantity_block(file);
    project_file::write_meal_serving_block(file);
}

std::string entry(const std::string& name, const std::filesystem::path& file) {
    return "  <file alias=\"" + name + "\">" + std::filesystem::absolute(file).string() +
           "</file>\n";
}

}  // namespace

void write_project(const std::filesystem::path& file) {
    std::filesystem::remove(file);
    DiskFiles disk;
    const std::unique_ptr<File> project = disk.open(file.string(), OpenMode::read_write);
    write_sections(*project);
    write_blocks(*project);
}

void write_resource_list(const std::filesystem::path& file, const std::filesystem::path& project,
                         const Documents& documents) {
    std::ofstream list(file, std::ios::binary | std::ios::trunc);
    list << "<RCC>\n <qresource prefix=\"/tavernook/sample\">\n"
         << entry(sample_file_name, project);
    for (const auto& [name, source] : documents) list << entry("recipes/" + name, source);
    list << " </qresource>\n</RCC>\n";
    if (!list.flush()) throw Fault(fault_number::device_io_error);
}

}  // namespace tavernook::make_sample
