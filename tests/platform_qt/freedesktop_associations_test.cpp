#include "platform_qt/freedesktop_associations.h"

#include <QImageReader>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>

#include "fakes/temp_folder.h"
#include "platform_qt/helper_program.h"
#include "platform_qt/qt_text.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;

const QString project_type = QStringLiteral("application/x-tavernook-project");

void write_script(const std::string& path, const std::string& body) {
    fs::create_directories(fs::path(path).parent_path());
    write_whole_file(path, "#!/bin/sh\n" + body + "\n");
    ::chmod(path.c_str(), 0755);
}

class AssociationsTest : public testing::Test {
  protected:
    void write(const std::string& program) {
        FreedesktopAssociations(path_to_qstring(folder.path("data")), path_to_qstring(program))
            .write();
    }
    void write() { write(helper_program().toStdString()); }
    std::string data(const std::string& name) const { return folder.path("data/" + name); }
    std::string entry() const { return data("applications/tavernook.desktop"); }
    std::string default_program() const {
        return output_of(QStringLiteral("xdg-mime"),
                         {QStringLiteral("query"), QStringLiteral("default"), project_type});
    }

    // Every file and folder in the data home with its time, which is made an old one first.
    std::map<std::string, fs::file_time_type> aged_files() const {
        const auto old = fs::file_time_type::clock::now() - std::chrono::hours(48);
        for (const auto& file : fs::recursive_directory_iterator(data(""))) {
            fs::last_write_time(file.path(), old);
        }
        return file_times();
    }
    std::map<std::string, fs::file_time_type> file_times() const {
        std::map<std::string, fs::file_time_type> times;
        for (const auto& file : fs::recursive_directory_iterator(data(""))) {
            times[file.path().string()] = fs::last_write_time(file.path());
        }
        return times;
    }

    TempFolder folder;
    ScopedVariable home{"HOME", folder.path()};
    ScopedVariable data_home{"XDG_DATA_HOME", folder.path("data")};
    ScopedVariable config_home{"XDG_CONFIG_HOME", folder.path("config")};
};

// With tools that only write down how they were called.
class AssociationToolsTest : public AssociationsTest {
  protected:
    AssociationToolsTest() {
        for (const char* name : {"update-mime-database", "update-desktop-database", "xdg-mime"}) {
            write_script(folder.path("bin/" + std::string(name)),
                         "echo \"${0##*/} $*\" >> '" + folder.path("calls") + "'");
        }
    }
    // What was called since the last time.
    std::string calls() const {
        const std::string path = folder.path("calls");
        const std::string text = fs::exists(path) ? read_whole_file(path) : "";
        write_whole_file(path, "");
        return text;
    }
    // What the real tool makes.
    void make_outcome_of_types() const {
        fs::create_directories(data("mime/application"));
        write_whole_file(data("mime/application/x-tavernook-project.xml"), "x");
    }

    std::string type_call = "update-mime-database " + data("mime") + "\n";
    std::string entry_calls = "update-desktop-database " + data("applications") +
                              "\nxdg-mime default tavernook.desktop "
                              "application/x-tavernook-project\n";
    ScopedVariable path{"PATH", folder.path("bin")};
};

TEST_F(AssociationsTest, QtKnowsTheTypes) {
    write();
    write_whole_file(folder.path("home.tvk"), "x");
    const auto type_of = [&](const char* name) {
        return output_of(helper_program(),
                         {QStringLiteral("type"), path_to_qstring(folder.path(name))});
    };
    const std::string project =
        "application/x-tavernook-project|Tavernook Household Planning|"
        "application-x-tavernook-project";
    EXPECT_EQ(type_of("home.tvk"), project);
    EXPECT_EQ(type_of("HOME.TVK"), project);
    EXPECT_EQ(type_of("soup.rpf"),
              "application/x-tavernook-recipe|RPF|application-x-tavernook-recipe");
    EXPECT_EQ(type_of("soup.txt").substr(0, 11), "text/plain|");
}

TEST_F(AssociationsTest, TheDesktopKnowsTypeIconAndProgram) {
    write();
    write_whole_file(folder.path("home.tvk"), "x");
    const QString file = path_to_qstring(folder.path("home.tvk"));
    const std::string facts = output_of(QStringLiteral("gio"), {QStringLiteral("info"), file});
    EXPECT_NE(facts.find("standard::content-type: application/x-tavernook-project"),
              std::string::npos)
        << facts;
    EXPECT_NE(facts.find("standard::icon: application-x-tavernook-project,"), std::string::npos)
        << facts;
    const std::string programs =
        output_of(QStringLiteral("gio"), {QStringLiteral("mime"), project_type});
    EXPECT_NE(programs.find("Default application for “application/x-tavernook-project”: "
                            "tavernook.desktop"),
              std::string::npos)
        << programs;
    EXPECT_EQ(default_program(), "tavernook.desktop");
    const ScopedVariable desktop("XDG_CURRENT_DESKTOP", "GNOME");
    EXPECT_EQ(output_of(QStringLiteral("xdg-mime"),
                        {QStringLiteral("query"), QStringLiteral("filetype"), file}),
              "application/x-tavernook-project");
}

TEST_F(AssociationsTest, RecipesAreNotOpenedByTheProgram) {
    write();
    const std::string programs =
        output_of(QStringLiteral("gio"),
                  {QStringLiteral("mime"), QStringLiteral("application/x-tavernook-recipe")});
    EXPECT_EQ(programs.find("tavernook.desktop"), std::string::npos) << programs;
}

TEST_F(AssociationsTest, TheEntryIsValid) {
    write(folder.path("my \"odd\" $HOME `dir` 100% back\\slash/tavernook"));
    EXPECT_EQ(output_of(QStringLiteral("desktop-file-validate"), {path_to_qstring(entry())}), "");
}

TEST_F(AssociationsTest, TheTypesFileIsWellFormed) {
    write();
    const std::string types = read_whole_file(data("mime/application/x-tavernook-project.xml"));
    EXPECT_NE(types.find("<comment>Tavernook Household Planning</comment>"), std::string::npos);
    EXPECT_NE(types.find("<glob pattern=\"*.tvk\"/>"), std::string::npos);
}

// The desktop itself reads the entry and starts the program with the file.
TEST_F(AssociationsTest, ADoubleClickStartsTheProgramWhereverItLies) {
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const char* place : {"plain", "two words", "my \"odd\" $HOME `dir`", "back\\slash \\n",
                              "K\xC3\xBC"
                              "che 'a'"}) {
        const std::string program = folder.path(place) + "/tavernook";
        write_script(program, "echo \"$#:$1\" > '" + pipe + "'");
        write(program);
        output_of(QStringLiteral("gio"), {QStringLiteral("launch"), path_to_qstring(entry()),
                                          path_to_qstring(folder.path("Our home.tvk"))});
        EXPECT_EQ(output_of(QStringLiteral("timeout"),
                            {QStringLiteral("600"), QStringLiteral("cat"), path_to_qstring(pipe)}),
                  "1:" + folder.path("Our home.tvk"))
            << place;
    }
}

TEST(ExecWord, IsQuotedAndEscapedTwice) {
    EXPECT_EQ(exec_word(QStringLiteral("/usr/bin/tavernook")),
              QStringLiteral("\"/usr/bin/tavernook\""));
    EXPECT_EQ(exec_word(QStringLiteral("/100%/$a")), QStringLiteral("\"/100%%/\\\\$a\""));
    EXPECT_EQ(exec_word(QStringLiteral("/b\\c")), QStringLiteral("\"/b\\\\\\\\c\""));
    EXPECT_EQ(exec_word(QStringLiteral("/x\ny")), QStringLiteral("\"/x\\ny\""));
}

TEST_F(AssociationsTest, TheIconsArePictures) {
    write();
    for (const char* name : {"apps/tavernook.svg", "mimetypes/application-x-tavernook-project.svg",
                             "mimetypes/application-x-tavernook-recipe.svg"}) {
        QImageReader reader(path_to_qstring(data("icons/hicolor/scalable/" + std::string(name))));
        reader.setScaledSize(QSize(48, 48));
        const QImage picture = reader.read();
        EXPECT_EQ(picture.size(), QSize(48, 48)) << name;
        EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << name;
        EXPECT_EQ(picture.pixelColor(24, 44).alpha(), 255) << name;
    }
}

TEST_F(AssociationsTest, ASecondCallChangesNothing) {
    write();
    const auto before = aged_files();
    ASSERT_GE(before.size(), 10u);
    write();
    EXPECT_EQ(file_times(), before);
}

TEST_F(AssociationsTest, ALaterChoiceOfTheUsersStands) {
    write();
    write_whole_file(data("applications/other.desktop"),
                     "[Desktop Entry]\nType=Application\nName=Other\nExec=true %f\n");
    output_of(QStringLiteral("xdg-mime"),
              {QStringLiteral("default"), QStringLiteral("other.desktop"), project_type});
    write();
    EXPECT_EQ(default_program(), "other.desktop");
}

TEST_F(AssociationToolsTest, AreToldOnceAndInOrder) {
    write();
    EXPECT_EQ(calls(), type_call + entry_calls);
    make_outcome_of_types();
    write();
    EXPECT_EQ(calls(), "");
}

TEST_F(AssociationToolsTest, AMovedProgramIsWrittenAnew) {
    write("/old/tavernook");
    make_outcome_of_types();
    calls();
    write("/new/tavernook");
    EXPECT_EQ(calls(), entry_calls);
    EXPECT_NE(read_whole_file(entry()).find("\nExec=\"/new/tavernook\" %f\n"), std::string::npos);
}

TEST_F(AssociationToolsTest, DamagedFilesAreWrittenAnew) {
    write();
    make_outcome_of_types();
    calls();
    const std::string types = read_whole_file(data("mime/packages/tavernook.xml"));
    const std::string icon_path = data("icons/hicolor/scalable/apps/tavernook.svg");
    const std::string icon = read_whole_file(icon_path);
    write_whole_file(data("mime/packages/tavernook.xml"), types.substr(1) + "x");
    write_whole_file(icon_path, "");
    const auto theme = aged_files().at(data("icons/hicolor"));
    write();
    EXPECT_EQ(read_whole_file(data("mime/packages/tavernook.xml")), types);
    EXPECT_EQ(read_whole_file(icon_path), icon);
    EXPECT_EQ(calls(), type_call);
    EXPECT_GT(fs::last_write_time(data("icons/hicolor")), theme);
}

TEST_F(AssociationToolsTest, AToolThatWasMissingIsRunAtTheNextStart) {
    const std::string tool = folder.path("bin/update-mime-database");
    fs::rename(tool, tool + ".away");
    write();
    EXPECT_EQ(calls(), entry_calls);
    fs::rename(tool + ".away", tool);
    write();
    EXPECT_EQ(calls(), type_call);
}

TEST_F(AssociationToolsTest, AToolThatFailsDoesNotStopTheOthers) {
    write_script(folder.path("bin/update-mime-database"), "exit 3");
    write_script(folder.path("bin/update-desktop-database"), "kill -9 $$");
    write();
    EXPECT_EQ(calls(), "xdg-mime default tavernook.desktop application/x-tavernook-project\n");
}

TEST_F(AssociationToolsTest, WithoutAnyToolTheFilesAreThere) {
    const ScopedVariable no_tools("PATH", folder.path("empty"));
    write();
    EXPECT_TRUE(fs::exists(entry()));
    EXPECT_TRUE(fs::exists(data("mime/packages/tavernook.xml")));
}

TEST_F(AssociationToolsTest, ADataHomeThatCannotBeWrittenIsPassedOver) {
    write_whole_file(folder.path("data"), "a file in the folder's place");
    write();
    EXPECT_EQ(read_whole_file(folder.path("data")), "a file in the folder's place");
}

TEST_F(AssociationToolsTest, WithoutADataHomeNothingHappens) {
    FreedesktopAssociations(QString(), QStringLiteral("/bin/true")).write();
    EXPECT_EQ(calls(), "");
    EXPECT_FALSE(fs::exists(folder.path("data")));
}

}  // namespace
}  // namespace tavernook
