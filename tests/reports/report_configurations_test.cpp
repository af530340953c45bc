// Saved reports as files.
#include "reports/report_configurations.h"

#include <chrono>
#include <filesystem>
#include <optional>

#include "reports/reports_fixture.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

std::string padded(std::string name) {
    name.resize(32, ' ');
    return name;
}

class ReportConfigurations : public ReportsTest {
  protected:
    std::string folder() const { return platform.system.program + "/reports"; }
    std::string path(const std::string& name) const { return folder() + "/" + name; }

    void write(const std::string& name, const std::string& bytes) {
        platform.disk.make_folder(folder());
        if (platform.disk.exists(path(name))) platform.disk.remove(path(name));
        platform.disk.open(path(name), OpenMode::read_write)->write(0, bytes);
    }
    std::string read(const std::string& name) {
        const auto file = platform.disk.open(path(name), OpenMode::read);
        std::string bytes(static_cast<std::size_t>(file->length()), '\0');
        file->read(0, bytes.data(), bytes.size());
        return bytes;
    }
    // Written so many hours ago.
    void age(const std::string& name, int hours) {
        fs::last_write_time(path(name),
                            fs::last_write_time(path(name)) - std::chrono::hours(hours));
    }
    Texts file_names() { return platform.disk.list(folder(), ""); }

    Texts listed() {
        get_configs(configurations);
        Texts names;
        for (const ConfigFile& file : configurations.config_files) {
            names.push_back(file.display_name);
        }
        return names;
    }
    void save_with(const std::string& name, const std::string& pattern) {
        search_string(1) = pattern;
        ASSERT_TRUE(save_report(name, filter, look));
    }
    std::string loaded_pattern(const std::string& file_name) {
        search_string(1) = "before";
        EXPECT_TRUE(load_report(file_name, filter, look));
        return search_string(1);
    }

    ReportLook look;
    Configurations configurations;
};

TEST_F(ReportConfigurations, NamesBecomeFileNames) {
    EXPECT_EQ(report_file_name("Week"), "Week.rcg");
    EXPECT_EQ(report_file_name("  Week list "), "Week list.rcg");
    EXPECT_EQ(report_file_name("a/b"), "a_1b.rcg");
    EXPECT_EQ(report_file_name("/\\:*?\"<>|"), "_1_2_3_4_5_6_7_8_9.rcg");
    EXPECT_EQ(report_file_name("../up"), ".._1up.rcg");
    EXPECT_EQ(report_file_name("caf\xE9"), "caf\xC3\xA9.rcg");
}

TEST_F(ReportConfigurations, LongNamesFitAndStayApart) {
    const std::string long_name(300, 'n');
    const std::string first = report_file_name(long_name + "1");
    EXPECT_LE(first.size(), 255u - 4u);
    EXPECT_NE(first, report_file_name(long_name + "2"));
    ASSERT_TRUE(save_report(long_name, filter, look));
    EXPECT_EQ(listed(), Texts{std::string(32, 'n')});
}

TEST_F(ReportConfigurations, AreSavedAndLoaded) {
    search_string(1) = "*milk*";
    checked(30) = -1;
    look.column_positions[1] = 3;
    look.sort = {2, 1, -1};
    ASSERT_TRUE(save_report("Milk", filter, look));
    EXPECT_EQ(read("Milk.rcg"), encode_report(ReportName("Milk"), filter, look, {}));
    begin_report_filter(filter);
    ReportLook seen;
    ASSERT_TRUE(load_report("Milk.rcg", filter, seen));
    EXPECT_EQ(search_string(1), "*milk*");
    EXPECT_EQ(checked(30), -1);
    EXPECT_EQ(seen.column_positions[1], 3);
    EXPECT_EQ(seen.sort, (ReportSort{2, 1, 0}));
    EXPECT_EQ(file_names(), Texts{"Milk.rcg"});
}

TEST_F(ReportConfigurations, ANameWithASlashShowsAsTyped) {
    save_with("Milk/Bread", "*");
    EXPECT_EQ(file_names(), Texts{"Milk_1Bread.rcg"});
    EXPECT_EQ(listed(), Texts{padded("Milk/Bread")});
}

TEST_F(ReportConfigurations, OtherLogicStringsGiveAnotherResult) {
    add_item(1, "Milk");
    add_item(2, "Bread");
    search_string(2) = "none";
    save_with("Milk", "milk");
    EXPECT_EQ(found(), std::vector<i16>{});
    reset_report_filter(filter);
    logic_string(1) = "OR";
    ASSERT_TRUE(load_report("Milk.rcg", filter, look));
    EXPECT_EQ(found(), std::vector<i16>{1});
}

TEST_F(ReportConfigurations, ALongerFileKeepsItsEnd) {
    save_with("Milk", std::string(500, 'x'));
    const std::string older = read("Milk.rcg");
    save_with("Milk", "y");
    EXPECT_EQ(read("Milk.rcg").size(), older.size());
    EXPECT_EQ(loaded_pattern("Milk.rcg"), "y");
    EXPECT_EQ(search_string(100), "*");
}

TEST_F(ReportConfigurations, AFileThatCannotBeReadLeavesAllAsItIs) {
    search_string(1) = "before";
    EXPECT_FALSE(load_report("none.rcg", filter, look));
    EXPECT_EQ(search_string(1), "before");
    write("short.rcg", std::string(1, '\1'));
    EXPECT_TRUE(load_report("short.rcg", filter, look));
    EXPECT_EQ(search_string(1), "before");
    EXPECT_EQ(look, ReportLook{});
}

TEST_F(ReportConfigurations, AreListedByTheirAge) {
    for (const char* name : {"c", "b", "a"}) save_with(name, "*");
    age("a.rcg", 2);
    age("c.rcg", 1);
    EXPECT_EQ(listed(), (Texts{padded("a"), padded("c"), padded("b")}));
    EXPECT_EQ(configurations.numbered(2).file_name, "c.rcg");
    for (const int none : {-1, 0, 4}) EXPECT_EQ(configurations.numbered(none), ConfigFile{});
}

TEST_F(ReportConfigurations, ReadingThemChoosesNone) {
    save_with("a", "*");
    configurations.current_config = 1;
    configurations.config_files.resize(3);
    EXPECT_EQ(listed(), Texts{padded("a")});
    EXPECT_EQ(configurations.current_config, 0);
}

TEST_F(ReportConfigurations, WithoutAFolderThereAreNone) {
    EXPECT_EQ(listed(), Texts{});
}

TEST_F(ReportConfigurations, AFileWithoutAWholeNameHasAnEntryWithoutOne) {
    save_with("b", "*");
    write("a.rcg", std::string(530, 'x'));
    age("a.rcg", 1);
    EXPECT_EQ(listed(), (Texts{"", padded("b")}));
    EXPECT_EQ(configurations.numbered(1).file_name, "a.rcg");
    EXPECT_EQ(configurations.listed(), std::vector<i16>{2});
}

TEST_F(ReportConfigurations, OtherFilesAreNone) {
    write("item.dat", "x");
    write("Milk.rcg.new", "x");
    platform.disk.make_folder(path("folder.rcg"));
    EXPECT_EQ(listed(), Texts{});
}

TEST_F(ReportConfigurations, AreAtMost999) {
    for (int number = 1000; number < 2001; ++number) write(std::to_string(number) + ".rcg", "");
    EXPECT_EQ(listed().size(), 999u);
}

// --- when the disk fails

TEST_F(ReportConfigurations, AFailedSaveIsToldAndLeavesTheOlderFile) {
    save_with("Milk", "older");
    const std::string older = read("Milk.rcg");
    platform.files.start_over();
    save_with("Milk", "newer");
    const int operations = platform.files.operations();
    ASSERT_GT(operations, 4);
    for (int n = 1; n <= operations; ++n) {
        write("Milk.rcg", older);
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently, Torn::yes);
        platform.boxes.expect_message("there has been an error");
        EXPECT_FALSE(save_report("Milk", filter, look)) << "operation " << n;
        platform.files.work_normally();
        EXPECT_EQ(read("Milk.rcg"), older) << "operation " << n;
    }
}

TEST_F(ReportConfigurations, AFolderThatCannotBeReadHasNone) {
    save_with("Milk", "*");
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::permission_denied);
    EXPECT_EQ(listed(), Texts{});
}

TEST_F(ReportConfigurations, AFileThatCannotBeOpenedHasNoName) {
    save_with("Milk", "*");
    platform.files.start_over();
    EXPECT_EQ(listed(), Texts{padded("Milk")});
    const int operations = platform.files.operations();
    platform.files.start_over();
    platform.files.fail_at(operations, fault_number::device_io_error);
    EXPECT_EQ(listed(), Texts{""});
}

TEST_F(ReportConfigurations, AFileThatCannotBeReadChangesNothing) {
    save_with("Milk", "*milk*");
    search_string(1) = "before";
    for (int n = 1; n <= 3; ++n) {
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::device_io_error);
        EXPECT_FALSE(load_report("Milk.rcg", filter, look)) << n;
        EXPECT_EQ(search_string(1), "before") << n;
    }
}

// --- commands

constexpr const char* overwrite = "Do you want to overwrite this saved report?";
constexpr const char* sure = "Are you sure that you want to delete this configuration?";

TEST_F(ReportConfigurations, TheFirstSaveAsksForAName) {
    search_string(1) = "*milk*";
    platform.boxes.expect_input("Configuration Name", "Configuration Save", "", " Milk ");
    const SavedAs saved = ask_and_save_report("", filter, look, configurations);
    EXPECT_EQ(saved.name, " Milk ");
    EXPECT_TRUE(saved.is_new);
    EXPECT_EQ(configurations.config_files,
              (std::vector<ConfigFile>{{"Milk.rcg", padded(" Milk ")}}));
}

TEST_F(ReportConfigurations, TheNewOneIsTheLast) {
    save_with("Zebra", "*");
    age("Zebra.rcg", 1);
    platform.boxes.expect_input("Configuration Name", "Configuration Save", "", "Apple");
    ask_and_save_report("", filter, look, configurations);
    ASSERT_EQ(configurations.config_files.size(), 2u);
    EXPECT_EQ(configurations.config_files.back().display_name, padded("Apple"));
}

TEST_F(ReportConfigurations, WithoutANameNothingIsSaved) {
    for (const auto& answer : {std::optional<std::string>(""), std::optional<std::string>("  "),
                               std::optional<std::string>()}) {
        platform.boxes.expect_input("Configuration Name", "Configuration Save", "", answer);
        EXPECT_EQ(ask_and_save_report("", filter, look, configurations).name, "");
    }
    EXPECT_FALSE(platform.disk.exists(folder()));
}

TEST_F(ReportConfigurations, YesOverwritesAndTheListStays) {
    save_with("Milk", "older");
    configurations.config_files = {{"Milk.rcg", padded("Milk")}};
    configurations.current_config = 1;
    search_string(1) = "newer";
    platform.boxes.expect_message(overwrite, Answer::yes).buttons(Buttons::yes_no);
    const SavedAs saved = ask_and_save_report(padded("Milk"), filter, look, configurations);
    EXPECT_EQ(saved.name, padded("Milk"));
    EXPECT_FALSE(saved.is_new);
    EXPECT_EQ(configurations.current_config, 1);
    EXPECT_EQ(loaded_pattern("Milk.rcg"), "newer");
    EXPECT_EQ(file_names(), Texts{"Milk.rcg"});
}

TEST_F(ReportConfigurations, NoAsksForANewName) {
    save_with("Milk", "older");
    search_string(1) = "newer";
    platform.boxes.expect_message(overwrite, Answer::no).buttons(Buttons::yes_no);
    platform.boxes.expect_input("Report Name", "Report Save", "", "Bread");
    EXPECT_EQ(ask_and_save_report("Milk", filter, look, configurations).name, "Bread");
    EXPECT_EQ(loaded_pattern("Milk.rcg"), "older");
    EXPECT_EQ(loaded_pattern("Bread.rcg"), "newer");
}

TEST_F(ReportConfigurations, WithoutOneChosenNothingIsDeleted) {
    save_with("Milk", "*");
    get_configs(configurations);
    for (const i16 none : {i16{0}, i16{-1}, i16{2}}) {
        configurations.current_config = none;
        platform.boxes.expect_message("No current configuration loaded.");
        EXPECT_FALSE(ask_and_delete_configuration(configurations));
    }
    EXPECT_EQ(listed(), Texts{padded("Milk")});
}

TEST_F(ReportConfigurations, NoDeletesNothing) {
    save_with("Milk", "*");
    get_configs(configurations);
    configurations.current_config = 1;
    platform.boxes.expect_message(sure, Answer::no).buttons(Buttons::yes_no);
    EXPECT_FALSE(ask_and_delete_configuration(configurations));
    EXPECT_EQ(configurations.current_config, 1);
    EXPECT_EQ(file_names(), Texts{"Milk.rcg"});
}

TEST_F(ReportConfigurations, YesDeletesTheFile) {
    save_with("Milk", "*");
    save_with("Bread", "*");
    age("Milk.rcg", 1);
    get_configs(configurations);
    configurations.current_config = 1;
    platform.boxes.expect_message(sure, Answer::yes).buttons(Buttons::yes_no);
    EXPECT_TRUE(ask_and_delete_configuration(configurations));
    EXPECT_EQ(file_names(), Texts{"Bread.rcg"});
    EXPECT_EQ(configurations.config_files,
              (std::vector<ConfigFile>{{"Bread.rcg", padded("Bread")}}));
    EXPECT_EQ(configurations.current_config, 0);
}

TEST_F(ReportConfigurations, AFileThatIsGoneCountsAsDeleted) {
    save_with("Milk", "*");
    get_configs(configurations);
    configurations.current_config = 1;
    platform.boxes.expect_message(sure, Answer::yes).during([&] {
        platform.disk.remove(path("Milk.rcg"));
    });
    EXPECT_TRUE(ask_and_delete_configuration(configurations));
    EXPECT_TRUE(configurations.config_files.empty());
}

TEST_F(ReportConfigurations, AFileThatStaysIsToldAndStaysChosen) {
    save_with("Milk", "*");
    get_configs(configurations);
    configurations.current_config = 1;
    platform.files.start_over();
    platform.files.fail_at(2, fault_number::permission_denied);
    platform.boxes.expect_message(sure, Answer::yes);
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(ask_and_delete_configuration(configurations));
    EXPECT_EQ(configurations.current_config, 1);
    EXPECT_EQ(file_names(), Texts{"Milk.rcg"});
}

}  // namespace
}  // namespace tavernook
