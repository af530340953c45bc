// What `cmake --install` puts in place, looked at by the programs that will read it.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <utility>

#include "fakes/temp_folder.h"

namespace tavernook {
namespace {

struct Outcome {
    int status = -1;
    std::string words;  // of both outputs
};

Outcome run(const std::string& command) {
    Outcome outcome;
    FILE* pipe = popen(("export LC_ALL=C.UTF-8; " + command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return outcome;
    char part[4096];
    while (const std::size_t size = std::fread(part, 1, sizeof part, pipe)) {
        outcome.words.append(part, size);
    }
    outcome.status = pclose(pipe);
    return outcome;
}

std::ptrdiff_t count_pages(const std::string& folder) {
    const auto files = std::filesystem::directory_iterator(folder);
    return std::count_if(begin(files), end(files),
                         [](const auto& file) { return file.path().extension() == ".html"; });
}

bool is_installed(const char* program) {
    return run(std::string("command -v ") + program).status == 0;
}

class Installation : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        folder = new TempFolder;
        installed = run(std::string("\"") + TAVERNOOK_CMAKE + "\" --install \"" +
                        TAVERNOOK_BUILD_FOLDER + "\" --prefix \"" + folder->path("usr") + "\"");
    }
    static void TearDownTestSuite() { delete folder; }
    void SetUp() override { ASSERT_EQ(installed.status, 0) << installed.words; }

    static std::string path(const std::string& name) { return folder->path("usr/" + name); }

    static inline TempFolder* folder = nullptr;
    static inline Outcome installed;
};

TEST_F(Installation, EverythingLiesWhereSystemsLookForIt) {
    for (const char* name :
         {"bin/tavernook", "lib/tavernook/tvk.hlp", "lib/tavernook/tvk.qhc",
          "share/applications/tavernook.desktop", "share/mime/packages/tavernook.xml",
          "share/man/man1/tavernook.1.gz", "share/metainfo/org.tavernook.tavernook.metainfo.xml",
          "share/doc/tavernook/copyright", "share/doc/tavernook/changelog.gz",
          "share/icons/hicolor/scalable/apps/tavernook.svg",
          "share/icons/hicolor/scalable/mimetypes/application-x-tavernook-project.svg",
          "share/icons/hicolor/scalable/mimetypes/application-x-tavernook-recipe.svg"}) {
        EXPECT_TRUE(std::filesystem::is_regular_file(path(name))) << name;
    }
}

TEST_F(Installation, EveryLibraryIsFoundAndNoneInTheBuildFolder) {
    for (const char* name : {"bin/tavernook", "lib/tavernook/libtavernook_web.so"}) {
        if (!std::filesystem::exists(path(name))) continue;  // built without the preview
        const Outcome libraries = run("ldd \"" + path(name) + "\"");
        EXPECT_EQ(libraries.status, 0) << libraries.words;
        EXPECT_EQ(libraries.words.find("not found"), std::string::npos) << libraries.words;
        EXPECT_EQ(libraries.words.find(TAVERNOOK_BUILD_FOLDER), std::string::npos);
    }
}

// The database that the help is, as others read it.
TEST_F(Installation, TheHelpHasItsPages) {
    if (!is_installed("sqlite3")) GTEST_SKIP() << "without sqlite3";
    const Outcome pages = run("sqlite3 \"" + path("lib/tavernook/tvk.hlp") +
                              "\" \"select count(*) from FileNameTable where Name like '%.html'\"");
    EXPECT_EQ(pages.words, std::to_string(count_pages(TAVERNOOK_SOURCES "/assets/help")) + "\n");
}

TEST_F(Installation, EveryTextTellsTheSameVersion) {
    const std::string version = TAVERNOOK_VERSION;
    for (const auto& [name, words] : std::initializer_list<std::pair<const char*, std::string>>{
             {"assets/desktop/tavernook.metainfo.xml", "<release version=\"" + version + "\""},
             {"packaging/tavernook.1", "Tavernook " + version},
             {"packaging/deb/changelog", "tavernook (" + version + ")"},
             {"docs/user/install.md", "tavernook_" + version + "_amd64.deb"}}) {
        const std::string text = read_whole_file(TAVERNOOK_SOURCES "/" + std::string(name));
        EXPECT_NE(text.find(words), std::string::npos) << name << "\n" << text;
    }
}

TEST_F(Installation, TheDesktopTakesTheEntry) {
    const std::string entry = path("share/applications/tavernook.desktop");
    const std::string words = read_whole_file(entry);
    EXPECT_NE(words.find("\nExec=tavernook %f\n"), std::string::npos) << words;
    EXPECT_NE(words.find("\nTryExec=tavernook\n"), std::string::npos) << words;
    if (!is_installed("desktop-file-validate")) GTEST_SKIP() << "without desktop-file-validate";
    EXPECT_EQ(run("desktop-file-validate \"" + entry + "\"").words, "");
}

TEST_F(Installation, SoftwareCentresTakeTheDescription) {
    if (!is_installed("appstreamcli")) GTEST_SKIP() << "without appstreamcli";
    const Outcome verdict = run("appstreamcli validate --no-net --no-color \"" +
                                path("share/metainfo/org.tavernook.tavernook.metainfo.xml") + "\"");
    EXPECT_EQ(verdict.status, 0) << verdict.words;
}

TEST_F(Installation, TheManualPageIsReadWithoutAWarning) {
    if (!is_installed("man")) GTEST_SKIP() << "without man";
    const Outcome page = run("{ man --warnings -l \"" + path("share/man/man1/tavernook.1.gz") +
                             "\" 2>&1 >/dev/null; }");
    EXPECT_EQ(page.status, 0);
    EXPECT_EQ(page.words, "");
}

}  // namespace
}  // namespace tavernook
