// Makes the sample project from its readable sources:
//   make_sample SOURCE_FOLDER OUTPUT_FOLDER
// The same sources give the same bytes. What does not fit together ends it with file and line.
#include <cstdio>
#include <exception>
#include <filesystem>

#include "aids/sample_project.h"
#include "sample_files.h"

int main(int argc, char** argv) {
    using namespace tavernook;
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_sample SOURCE_FOLDER OUTPUT_FOLDER\n");
        return 2;
    }
    try {
        const std::filesystem::path output = argv[2];
        std::filesystem::create_directories(output);
        const make_sample::Documents documents = make_sample::fill_tables(argv[1]);
        make_sample::write_project(output / sample_file_name);
        make_sample::write_resource_list(output / "sample.qrc", output / sample_file_name,
                                         documents);
        return 0;
    } catch (const Fault& fault) {
        std::fprintf(stderr, "make_sample: %s\n", fault.what());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
