// The sample as it comes with the program, laid out and opened as a user meets it.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "aids/sample_project.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "sample_tables.h"

namespace tavernook {

inline const std::filesystem::path& sample_sources() {
    static const std::filesystem::path folder = TAVERNOOK_SOURCE_FOLDER "/assets/sample";
    return folder;
}

// The sample as the build made it.
inline ShippedSample built_sample() {
    static const make_sample::Documents documents = [] {
        make_sample::Documents found = make_sample::fill_tables(sample_sources());
        reset_project_tables();
        return found;
    }();
    ShippedSample sample;
    sample.names.push_back(sample_file_name);
    for (const auto& [name, path] : documents) sample.names.push_back("recipes/" + name);
    sample.bytes = [](const std::string& name) {
        if (name == sample_file_name) return read_whole_file(TAVERNOOK_SAMPLE_PROJECT);
        return read_whole_file(documents.at(name.substr(8)).string());
    };
    return sample;
}

class SampleTest : public testing::Test {
  protected:
    SampleTest() { set_shipped_sample(built_sample()); }
    ~SampleTest() override { set_shipped_sample({}); }

    std::string in_program(const std::string& name) { return platform.system.program + "/" + name; }
    bool is_there(const std::string& name) { return std::filesystem::exists(in_program(name)); }

    // As the user does on the start page.
    void open_sample() {
        SeedProject();
        ASSERT_EQ(project_open, i16_true);
    }

    i16 item(const std::string& name) {
        for (int slot = 1; slot <= item_capacity; ++slot) {
            if (items[slot].in_use == 1 && items[slot].name == name) return to_i16(slot);
        }
        ADD_FAILURE() << "no item " << name;
        return 0;
    }
    i16 recipe(const std::string& name) {
        for (int slot = 1; slot <= meal_capacity; ++slot) {
            if (meals[slot].in_use == 1 && meals[slot].name == name) return to_i16(slot);
        }
        ADD_FAILURE() << "no recipe " << name;
        return 0;
    }

    TestPlatform platform;
};

}  // namespace tavernook
