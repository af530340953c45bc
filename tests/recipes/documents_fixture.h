// The open project home.tvk with recipe 7, and short ways to its documents on the disk.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "basics/fault_expectation.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "recipes/documents.h"

namespace tavernook {

inline constexpr i16 soup = 7;
inline constexpr const char* soup_entry = "*vk14home000007.rtf";
inline constexpr const char* first_text = "{\\rtf1 Boil the bones.}";
inline constexpr const char* second_text = "{\\rtf1 Boil the bones for three hours.}";
inline constexpr const char* third_text = "{\\rtf1 Buy soup.}";

class DocumentsTest : public testing::Test {
  protected:
    DocumentsTest() {
        set_project_path(platform.path("home.tvk"));
        recipes_folder = in_program_folder("recipes/");
        platform.disk.make_folder(recipes_folder);
        meals[soup].name = "Soup";
        meals[soup].in_use = 1;
    }

    static std::string in_recipes(const std::string& name) { return recipes_folder + name; }
    static bool is_there(const std::string& name) {
        return std::filesystem::exists(in_recipes(name));
    }
    static std::string on_disk(const std::string& name) {
        return read_whole_file(in_recipes(name));
    }
    static void put_on_disk(const std::string& name, std::string_view bytes) {
        write_whole_file(in_recipes(name), bytes);
    }
    std::vector<std::string> names_on_disk() { return platform.disk.list(recipes_folder, ""); }

    // The saved project holds the soup with this text.
    static void save_soup(const char* text) {
        meal_documents[soup] = soup_entry;
        put_on_disk("home000007.rtf", text);
        keep_documents();
        project_modified = i16_false;
    }

    TestPlatform platform;
};

}  // namespace tavernook
