// "TVK.dat", byte by byte: four recent projects, the welcome flag, the window's geometry.
#include "core/project/settings_file.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "core/program_state.h"
#include "fakes/test_platform.h"

namespace tavernook {

namespace {

// Bytes by their positions, which count from 1.
class SettingsBytes {
  public:
    explicit SettingsBytes(std::size_t size = 3031, char filling = '\0') : bytes(size, filling) {}

    SettingsBytes& word(std::size_t position, int value) {
        bytes[position - 1] = static_cast<char>(value & 0xFF);
        bytes[position] = static_cast<char>((value >> 8) & 0xFF);
        return *this;
    }
    SettingsBytes& path(std::size_t position, std::string text) {
        text.resize(128, ' ');
        bytes.replace(position - 1, 128, text);
        return *this;
    }

    std::string bytes;
};

// Where they differ, as a position from 1; 0 when they are equal.
std::size_t first_difference(const std::string& a, const std::string& b) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t at = 0; at < common; ++at) {
        if (a[at] != b[at]) return at + 1;
    }
    return a.size() == b.size() ? 0 : common + 1;
}

class SettingsFile : public testing::Test {
  protected:
    SettingsFile() { settings_file = platform.system.settings + "/TVK.dat"; }

    void put(const SettingsBytes& content) { write_whole_file(settings_file, content.bytes); }
    std::string on_disk() { return read_whole_file(settings_file); }
    std::string path_on_disk(std::size_t position) {
        const std::string path = on_disk().substr(position - 1, 128);
        return path.substr(0, path.find_last_not_of(' ') + 1);
    }
    int word_on_disk(std::size_t position) {
        const std::string bytes = on_disk();
        return static_cast<unsigned char>(bytes.at(position - 1)) |
               static_cast<unsigned char>(bytes.at(position)) << 8;
    }
    void expect_paths(const std::string& first, const std::string& second, const std::string& third,
                      const std::string& fourth) {
        EXPECT_EQ(path_on_disk(1), first);
        EXPECT_EQ(path_on_disk(257), second);
        EXPECT_EQ(path_on_disk(385), third);
        EXPECT_EQ(path_on_disk(513), fourth);
    }

    TestPlatform platform;
};

TEST_F(SettingsFile, EveryFieldHasItsPosition) {
    SettingsRecord record;
    record.recent_projects = {"/a/one.tvk", "/a/two.tvk", "/a/three.tvk", "/a/four.tvk"};
    record.recent_count = 4;
    record.hide_welcome_dialog = -1;
    record.geometry = {700, 1100, -40, 0x0102};
    const SettingsBytes expected = SettingsBytes()
                                       .path(1, "/a/one.tvk")
                                       .path(257, "/a/two.tvk")
                                       .path(385, "/a/three.tvk")
                                       .path(513, "/a/four.tvk")
                                       .word(1000, 4)
                                       .word(2000, 0xFFFF)
                                       .word(3000, 700)
                                       .word(3010, 1100)
                                       .word(3020, 0x10000 - 40)
                                       .word(3030, 0x0102);
    EXPECT_EQ(first_difference(encode_settings(record, {}), expected.bytes), 0U);
}

TEST_F(SettingsFile, EveryFieldIsReadFromItsPosition) {
    put(SettingsBytes()
            .path(1, "/a/one.tvk")
            .path(257, "/a/two.tvk")
            .path(385, "/a/three.tvk")
            .path(513, "/a/four.tvk")
            .word(1000, 3)
            .word(2000, 1)
            .word(3000, 700)
            .word(3010, 1100)
            .word(3020, 0x10000 - 40)
            .word(3030, 0x0102));
    const SettingsRecord record = read_settings_file();
    EXPECT_EQ(record.recent_projects[0], "/a/one.tvk");
    EXPECT_EQ(record.recent_projects[1], "/a/two.tvk");
    EXPECT_EQ(record.recent_projects[2], "/a/three.tvk");
    EXPECT_EQ(record.recent_projects[3], "/a/four.tvk");
    EXPECT_EQ(record.recent_count, 3);
    EXPECT_EQ(record.hide_welcome_dialog, 1);
    EXPECT_EQ(record.geometry, (WindowGeometry{700, 1100, -40, 258}));
}

TEST_F(SettingsFile, TheWindowStateGoesToTheFileAndBack) {
    hide_welcome_dialog = -1;
    window_geometry = {700, 1100, -40, 30};
    save_window_state();
    hide_welcome_dialog = 0;
    window_geometry = {};
    load_window_state();
    EXPECT_EQ(hide_welcome_dialog, -1);
    EXPECT_EQ(window_geometry, (WindowGeometry{700, 1100, -40, 30}));
}

TEST_F(SettingsFile, AFileThatIsMissingReadsAsNothing) {
    hide_welcome_dialog = -1;
    window_geometry = {1, 2, 3, 4};
    load_window_state();
    EXPECT_EQ(hide_welcome_dialog, 0);
    EXPECT_EQ(window_geometry, WindowGeometry{});
    EXPECT_FALSE(std::filesystem::exists(settings_file));
}

TEST_F(SettingsFile, AFolderThatIsMissingIsMade) {
    settings_file = platform.path("config/Tavernook/TVK.dat");
    save_window_state();
    EXPECT_EQ(on_disk().size(), 3031U);
}

// What a field holds when the file ends behind `length` bytes: whole, cut, or nothing.
int word_in_short_file(int word, std::size_t position, std::size_t length) {
    if (length > position) return word;
    return length == position ? (word & 0xFF) : 0;
}

TEST_F(SettingsFile, AFileOfAnyLengthIsRead) {
    const SettingsBytes whole = SettingsBytes()
                                    .path(1, std::string(128, 'a'))
                                    .path(513, std::string(128, 'd'))
                                    .word(1000, 4)
                                    .word(2000, 0x0102)
                                    .word(3000, 0x0304)
                                    .word(3030, 0x0506);
    for (std::size_t length = 0; length <= 3031; ++length) {
        const SettingsRecord record = decode_settings(whole.bytes.substr(0, length));
        ASSERT_EQ(record.recent_projects[0], std::string(std::min<std::size_t>(length, 128), 'a'));
        const std::size_t fourth = std::clamp<std::size_t>(length, 512, 640) - 512;
        ASSERT_EQ(record.recent_projects[3], std::string(fourth, 'd')) << length;
        ASSERT_EQ(record.recent_count, word_in_short_file(4, 1000, length)) << length;
        ASSERT_EQ(record.hide_welcome_dialog, word_in_short_file(0x0102, 2000, length)) << length;
        ASSERT_EQ(record.geometry.height, word_in_short_file(0x0304, 3000, length)) << length;
        ASSERT_EQ(record.geometry.top, word_in_short_file(0x0506, 3030, length)) << length;
    }
}

TEST_F(SettingsFile, AShortFileIsMadeWhole) {
    write_whole_file(settings_file, "/a/one.tvk");
    window_geometry = {1, 2, 3, 4};
    save_window_state();
    EXPECT_EQ(on_disk().size(), 3031U);
    EXPECT_EQ(path_on_disk(1), "/a/one.tvk");
    EXPECT_EQ(word_on_disk(3030), 4);
}

TEST_F(SettingsFile, GarbageIsReadAsFarAsItMakesSense) {
    put(SettingsBytes(3031, '\xFF'));
    EXPECT_EQ(read_settings_file().recent_count, 0);  // -1
    add_recent_project("/a/one.tvk");
    EXPECT_EQ(path_on_disk(1), "/a/one.tvk");
    EXPECT_EQ(path_on_disk(257), std::string(128, '\xFF'));
    EXPECT_EQ(word_on_disk(1000), 1);
    put(SettingsBytes(3031, '\x7F'));
    EXPECT_EQ(read_settings_file().recent_count, 4);  // 32639
    add_recent_project("/a/one.tvk");
    EXPECT_EQ(word_on_disk(1000), 4);
}

TEST_F(SettingsFile, BytesOfNoFieldAreKept) {
    put(SettingsBytes(5000, 'x').path(1, "").path(257, "").path(385, "").path(513, ""));
    window_geometry = {1, 2, 3, 4};
    hide_welcome_dialog = 5;
    save_window_state();
    const SettingsBytes expected = SettingsBytes(5000, 'x')
                                       .path(1, "")
                                       .path(257, "")
                                       .path(385, "")
                                       .path(513, "")
                                       .word(1000, 4)
                                       .word(2000, 5)
                                       .word(3000, 1)
                                       .word(3010, 2)
                                       .word(3020, 3)
                                       .word(3030, 4);
    EXPECT_EQ(first_difference(on_disk(), expected.bytes), 0U);
}

TEST_F(SettingsFile, NewPathsShiftTheOthersThroughTheFourPlaces) {
    add_recent_project("/a/one.tvk");
    expect_paths("/a/one.tvk", "", "", "");
    EXPECT_EQ(word_on_disk(1000), 1);
    add_recent_project("/a/two.tvk");
    add_recent_project("/a/three.tvk");
    expect_paths("/a/three.tvk", "/a/two.tvk", "/a/one.tvk", "");
    EXPECT_EQ(word_on_disk(1000), 3);
    add_recent_project("/a/four.tvk");
    EXPECT_EQ(word_on_disk(1000), 4);
    add_recent_project("/a/five.tvk");
    expect_paths("/a/five.tvk", "/a/four.tvk", "/a/three.tvk", "/a/two.tvk");
    EXPECT_EQ(word_on_disk(1000), 4);
}

TEST_F(SettingsFile, APathThatIsThereStaysInItsPlace) {
    for (const char* name : {"one", "two", "three", "four"}) {
        add_recent_project(std::string("/a/") + name + ".tvk");
    }
    const std::string before = on_disk();
    for (const char* name : {"one", "two", "three", "four"}) {
        platform.files.start_over();
        add_recent_project(std::string("/a/") + name + ".tvk");
        EXPECT_EQ(first_difference(on_disk(), before), 0U) << name;
        // Not even written again.
        for (const std::string& entry : platform.files.log()) {
            EXPECT_FALSE(entry.starts_with("write ")) << entry;
        }
    }
}

TEST_F(SettingsFile, SomePathsAreNotForTheList) {
    for (const char* path : {"", "/a/restored.tvk", "/restored/home.tvk", "/a/my restored one.tvk",
                             "/a/home.vpk", "/a/home", "/a/home.TVK", "/a/home.tvk ", "vk"}) {
        add_recent_project(path);
        EXPECT_FALSE(std::filesystem::exists(settings_file)) << path;
    }
    // Three letters are enough, and capitals do not count as that word.
    add_recent_project("tvk");
    add_recent_project("/a/Restored.tvk");
    expect_paths("/a/Restored.tvk", "tvk", "", "");
}

TEST_F(SettingsFile, APathThatWouldBeCutIsLeftOut) {
    const std::string fits = "/" + std::string(123, 'p') + ".tvk";
    const std::string too_long = "/" + std::string(124, 'q') + ".tvk";
    ASSERT_EQ(fits.size(), 128U);
    add_recent_project(too_long);
    EXPECT_FALSE(std::filesystem::exists(settings_file));
    add_recent_project(fits);
    add_recent_project(fits);
    expect_paths(fits, "", "", "");
    EXPECT_EQ(word_on_disk(1000), 1);
}

TEST_F(SettingsFile, APathThatOnlyBeginsLikeAnotherIsAnother) {
    add_recent_project("/a/one.tvk");
    add_recent_project("/a/one.tvk.tvk");
    expect_paths("/a/one.tvk.tvk", "/a/one.tvk", "", "");
}

TEST_F(SettingsFile, TheTwoWritersLeaveEachOthersFieldsAlone) {
    window_geometry = {700, 1100, 40, 30};
    hide_welcome_dialog = -1;
    save_window_state();
    window_geometry = {};
    hide_welcome_dialog = 0;
    add_recent_project("/a/one.tvk");
    EXPECT_EQ(word_on_disk(3000), 700);
    EXPECT_EQ(word_on_disk(2000), 0xFFFF);
    save_window_state();
    expect_paths("/a/one.tvk", "", "", "");
    EXPECT_EQ(word_on_disk(3000), 0);
}

TEST_F(SettingsFile, AWriteReplacesTheFileInOneStep) {
    put(SettingsBytes().path(1, "/a/one.tvk"));
    write_whole_file(settings_file + ".new", "left behind by a crash");
    platform.files.start_over();
    add_recent_project("/a/two.tvk");
    std::vector<std::string> changes;
    for (const std::string& entry : platform.files.log()) {
        for (const char* change : {"write ", "flush ", "rename ", "remove "}) {
            if (entry.starts_with(change)) changes.push_back(entry);
        }
    }
    EXPECT_EQ(changes,
              (std::vector<std::string>{"remove TVK.dat.new", "write TVK.dat.new 0 3031",
                                        "flush TVK.dat.new", "rename TVK.dat.new -> TVK.dat"}));
    expect_paths("/a/two.tvk", "/a/one.tvk", "", "");
    EXPECT_FALSE(std::filesystem::exists(settings_file + ".new"));
}

TEST_F(SettingsFile, AFileThatCannotBeReadIsNotReplaced) {
    put(SettingsBytes().path(1, "/a/one.tvk"));
    const std::string before = on_disk();
    platform.files.fail_at(2, fault_number::device_io_error);
    platform.boxes.expect_message(
        "Error in Module MAIN.add_recent_project.  Error Number 57 Err Description=Device I/O "
        "error");
    add_recent_project("/a/two.tvk");
    EXPECT_EQ(first_difference(on_disk(), before), 0U);
}

}  // namespace

}  // namespace tavernook
