// What the tests of the project file share: a fixture that saves and opens, bytes built by hand,
// and the state of a folder. Positions count from 1, as in docs/formats/project_file.md.
#pragma once

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/file_management.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "platform/platform.h"
#include "support/table_snapshot.h"

namespace tavernook {

// A sanitizer makes everything ten times slower: there the tests of very many like cases take every
// 5th one. The plain build runs them all.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr int case_stride = 5;
#else
inline constexpr int case_stride = 1;
#endif

// Little-endian fields at positions, independent of the program's own codec.
class Image {
  public:
    explicit Image(std::string start = {}) : bytes(std::move(start)) {}

    Image& word(std::size_t position, int value) { return number(position, value, 2); }
    Image& position_word(std::size_t position, std::int64_t value) {
        return number(position, value, 4);
    }
    Image& real(std::size_t position, double value) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        return number(position, static_cast<std::int64_t>(bits), 8);
    }
    Image& fixed(std::size_t position, std::string text, std::size_t size) {
        text.resize(size, ' ');
        return put(position, text);
    }
    // Returns the position behind it.
    std::size_t variable(std::size_t position, std::string_view text) {
        word(position, static_cast<int>(text.size()));
        put(position + 2, text);
        return position + 2 + text.size();
    }
    Image& put(std::size_t position, std::string_view text) {
        if (bytes.size() < position - 1 + text.size()) bytes.resize(position - 1 + text.size());
        bytes.replace(position - 1, text.size(), text);
        return *this;
    }

    std::string bytes;

  private:
    Image& number(std::size_t position, std::int64_t value, std::size_t size) {
        std::string text;
        for (std::size_t byte = 0; byte < size; ++byte) {
            text += static_cast<char>((static_cast<std::uint64_t>(value) >> (8 * byte)) & 0xFF);
        }
        return put(position, text);
    }
};

inline std::int64_t number_at(std::string_view bytes, std::size_t position, std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t byte = size; byte-- > 0;) {
        value = (value << 8U) | static_cast<unsigned char>(bytes.at(position - 1 + byte));
    }
    const std::uint64_t sign = std::uint64_t{1} << (8 * size - 1);
    return static_cast<std::int64_t>((value ^ sign) - sign);
}
inline int word_at(std::string_view bytes, std::size_t position) {
    return static_cast<int>(number_at(bytes, position, 2));
}
inline std::int64_t long_at(std::string_view bytes, std::size_t position) {
    return number_at(bytes, position, 4);
}

// Empty when equal, else the first position that differs.
inline std::string first_difference(std::string_view expected, std::string_view actual) {
    const std::size_t common = std::min(expected.size(), actual.size());
    for (std::size_t at = 0; at < common; ++at) {
        if (expected[at] == actual[at]) continue;
        return "position " + std::to_string(at + 1) + ": expected " +
               std::to_string(static_cast<unsigned char>(expected[at])) + ", is " +
               std::to_string(static_cast<unsigned char>(actual[at]));
    }
    if (expected.size() == actual.size()) return {};
    return "expected " + std::to_string(expected.size()) + " bytes, there are " +
           std::to_string(actual.size());
}

// The files below a folder with all their bytes.
using FolderState = std::map<std::string, std::string>;
inline FolderState state_of(const std::string& folder) {
    FolderState state;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        state[entry.path().string()] =
            entry.is_regular_file() ? read_whole_file(entry.path().string()) : "folder";
    }
    return state;
}

inline constexpr const char* bad_record_box =
    "FileManagement.Project_Open - File Load Error.  Bad Record Number";
inline constexpr const char* corrupted_box = "FileManagement.Project_Open - File Corrupted.";

// Notes what it is told and answers as if the user had pressed the default key.
class NotingBoxes : public Boxes {
  public:
    Answer message(std::string_view text, Buttons buttons, std::string_view,
                   DefaultButton) override {
        texts.emplace_back(text);
        return buttons == Buttons::ok ? Answer::ok : answer;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return std::nullopt;
    }

    std::vector<std::string> texts;
    Answer answer = Answer::no;
};

// One live record in each section, one line in each block; every lot up to item 4.
inline void fill_small_project() {
    file_version = 1;
    project_created = 45400;
    scanner_type = 2;
    items[3].in_use = 1;
    items[3].name = "Flour";
    items[3].quantity = 12.5;
    items[3].store_order = 4;
    items[3].on_shopping_list = 1;
    items[3].shopping_quantity = 2;
    meals[9].in_use = 1;
    stores[4].in_use = 1;
    days[8].in_use = 1;
    meal_documents[9] = "soup.rtf";
    wams[2].in_use = -1;
    wams[2].text = "1 cup = 8 oz";
    lots.grow(3);
    lots[3].lot_quantity[1] = 12.5;
    item_details[3].brand = 6;
    pooled_strings[6] = "Mill";
    day_quantities[8].meal_servings[1] = 3;
    meal_serving_size[9] = 4;
}

class ProjectFileTest : public testing::Test {
  protected:
    ProjectFileTest() { set_project_path(home); }

    // Saves the tables under `home` and returns the bytes.
    std::string save() {
        set_project_path(home);
        EXPECT_TRUE(Project_Save(1));
        return read_whole_file(home);
    }

    // Opens `home` as a program does that has just been started.
    void open() {
        reset_program_state();
        set_project_path(home);
        platform.progress.log.clear();
        Project_Open();
    }
    void open(std::string_view bytes) {
        write_whole_file(home, bytes);
        open();
    }

    // Opens the bytes and checks that it gave up with this box and left no trace.
    void expect_refused(std::string_view bytes, const char* box) {
        write_whole_file(home, bytes);
        const FolderState before = state_of(platform.temp.path());
        if (box != nullptr) platform.boxes.expect_message(box);
        open();
        platform.boxes.check_used_up();
        expect_gave_up();
        EXPECT_EQ(state_of(platform.temp.path()), before);
    }
    void expect_opened() {
        EXPECT_EQ(project_load_failed, i16_false);
        EXPECT_EQ(project_open, i16_true);
    }
    void expect_gave_up() {
        EXPECT_EQ(project_load_failed, i16_true);
        EXPECT_EQ(project_open, i16_false);
        const auto& progress = platform.progress.events();
        ASSERT_GE(progress.size(), 2U);
        EXPECT_EQ(progress[progress.size() - 2], "hide");
        EXPECT_EQ(progress.back(), "unload");
    }

    // From here on boxes are noted and answered, not scripted.
    void note_boxes(Answer answer = Answer::no) {
        notes.texts.clear();
        notes.answer = answer;
        set_platform({.clock = &platform.clock,
                      .boxes = &notes,
                      .file_dialogs = &platform.dialogs,
                      .files = &platform.files,
                      .settings_store = &platform.settings,
                      .file_associations = &platform.associations,
                      .project_lock = &platform.lock,
                      .system_info = &platform.system,
                      .help_viewer = &platform.help,
                      .save_progress = &platform.progress,
                      .main = &platform.main,
                      .screens = &platform.screens});
    }

    TestPlatform platform;
    NotingBoxes notes;
    const std::string home = platform.path("home.tvk");
};

}  // namespace tavernook
