#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "structure/program_tree.h"

namespace tavernook::structure {
namespace {

TEST(SourceTree, IsReadWhole) {
    EXPECT_GE(program().size(), 20u);
    EXPECT_EQ(program().count("basics/date.cpp"), 1u);
    EXPECT_EQ(program().count("basics/date.h"), 1u);
    EXPECT_EQ(program().count("platform/platform.h"), 1u);
    EXPECT_GE(count_inner_includes(program()), 20);
}

TEST(SourceTree, QtStaysInItsRooms) {
    const Offences offences = misplaced_qt(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

TEST(SourceTree, NoFileIncludesItselfHoweverFarRound) {
    const Offences offences = include_circles(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

TEST(SourceTree, DialogsAreWrapped) {
    const Offences offences = raw_dialogs(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

TEST(MisplacedQt, IsSeenInTheLogicAndBelow) {
    for (const char* header : {"<QString>", "<QtCore/QString>", "<QtGlobal>", "<QtWidgets>",
                               "\"QString\"", "<qglobal.h>", "\"ui_main.h\"", "\"a.moc\""}) {
        for (const char* room : {"basics", "platform", "platform_disk", "core", "reports"}) {
            const std::string file = std::string(room) + "/a.cpp";
            const std::string line = std::string("#include ") + header + "\n";
            ASSERT_EQ(misplaced_qt({{file, line}}).size(), 1u) << room << " " << header;
        }
    }
    EXPECT_EQ(misplaced_qt({{"core/a.h", "\n#include <QtCore/QString>\n"}}),
              Offences{"core/a.h:2 must not include QtCore/QString"});
}

TEST(MisplacedQt, IsNoneInItsOwnRooms) {
    for (const char* room : {"rich_text", "platform_qt", "screens", "app"}) {
        EXPECT_TRUE(misplaced_qt({{std::string(room) + "/a.cpp",
                                   "#include <QString>\n#include \"ui_a.h\"\n"}})
                        .empty());
    }
}

TEST(MisplacedQt, OtherHeadersAreNone) {
    EXPECT_TRUE(
        misplaced_qt({{"core/a.h", "#include <queue>\n#include \"core/quantities.h\"\n"}}).empty());
}

TEST(IncludeCircles, AFileThatIncludesItself) {
    EXPECT_EQ(include_circles({{"core/a.h", "#include \"core/a.h\"\n"}}),
              Offences{"core/a.h -> core/a.h"});
}

TEST(IncludeCircles, TwoFiles) {
    EXPECT_EQ(include_circles(
                  {{"core/a.h", "#include \"core/b.h\"\n"}, {"core/b.h", "#include \"a.h\"\n"}}),
              Offences{"core/a.h -> core/b.h -> core/a.h"});
}

TEST(IncludeCircles, AreReportedWithoutTheWayToThem) {
    EXPECT_EQ(include_circles({{"core/a.cpp", "#include \"core/b.h\"\n"},
                               {"core/b.h", "#include \"inventory/c.h\"\n"},
                               {"inventory/c.h", "#include \"recipes/d.h\"\n"},
                               {"recipes/d.h", "#include <string>\n#include \"core/b.h\"\n"}}),
              Offences{"core/b.h -> inventory/c.h -> recipes/d.h -> core/b.h"});
}

TEST(IncludeCircles, FarRound) {
    SourceTree tree;
    const auto name = [](int i) { return "core/file" + std::to_string(100 + i % 50) + ".h"; };
    for (int i = 0; i < 50; ++i) tree[name(i)] = "#include \"" + name(i + 1) + "\"\n";
    ASSERT_EQ(include_circles(tree).size(), 1u);
    tree[name(49)] = "#pragma once\n";
    EXPECT_TRUE(include_circles(tree).empty());
}

TEST(IncludeCircles, SeveralAreAllReported) {
    EXPECT_EQ(include_circles({{"core/a.h", "#include \"core/b.h\"\n"},
                               {"core/b.h", "#include \"core/a.h\"\n"},
                               {"core/c.h", "#include \"core/a.h\"\n#include \"core/d.h\"\n"},
                               {"core/d.h", "#include \"core/c.h\"\n"}})
                  .size(),
              2u);
}

TEST(IncludeCircles, TwoWaysToOneFileAreNone) {
    EXPECT_TRUE(include_circles({{"core/a.h", "#include \"core/b.h\"\n#include \"core/c.h\"\n"},
                                 {"core/b.h", "#include \"core/d.h\"\n"},
                                 {"core/c.h", "#include \"core/d.h\"\n"},
                                 {"core/d.h", "#include \"core/gone.h\"\n"}})
                    .empty());
}

TEST(RawDialogs, AreSeenEverywhereButBehindThePlatform) {
    for (const char* name : {"QMessageBox", "QInputDialog", "QFileDialog"}) {
        const std::string text = std::string("void f() {\n    ") + name + " box;\n}\n";
        for (const char* room : {"core", "screens", "app", "platform"}) {
            EXPECT_EQ(raw_dialogs({{std::string(room) + "/a.cpp", text}}),
                      Offences{std::string(room) + "/a.cpp:2 uses " + name});
        }
        EXPECT_TRUE(raw_dialogs({{"platform_qt/a.cpp", text}}).empty());
    }
    EXPECT_TRUE(raw_dialogs({{"screens/a.cpp", "#include <QDialog>\n"}}).empty());
}

TEST(ReadSourceTree, AMissingFolderIsAnError) {
    EXPECT_THROW(read_source_tree("/no/such/folder"), std::filesystem::filesystem_error);
}

}  // namespace
}  // namespace tavernook::structure
