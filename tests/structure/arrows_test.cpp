#include "structure/arrows.h"

#include <map>
#include <sstream>

#include "structure/program_tree.h"

namespace tavernook::structure {
namespace {

TEST(SourceTree, EveryFileIncludesOnlyWhatItsRoomMay) {
    const Offences offences = broken_arrows(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

// The offences of a file of `room` that includes a file of `target`.
Offences arrow(const std::string& room, const std::string& target) {
    return broken_arrows({{room + "/a.cpp", "#include \"" + target + "/b.h\"\n"},
                          {target + "/b.h", "#pragma once\n"}});
}

// Spelt out, room by room: all that a room may include, itself left out.
const std::map<std::string, std::string> expected = {
    {"basics", ""},
    {"platform", "basics"},
    {"core", "basics platform"},
    {"core/project_file", "basics platform core"},
    {"inventory", "basics platform core"},
    {"recipes", "basics platform core inventory"},
    {"shopping", "basics platform core inventory"},
    {"planning", "basics platform core inventory recipes"},
    {"barcodes", "basics platform core inventory shopping"},
    {"core/project", "basics platform core core/project_file inventory recipes shopping planning"},
    {"reports",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes"},
    {"transfer",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes"},
    {"aids",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes"},
    {"today",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes"},
    {"rich_text", "basics"},
    {"platform_disk", "basics platform"},
    {"platform_web", "basics platform"},
    {"platform_services", "basics platform"},
    {"platform_qt",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes aids platform_disk platform_services"},
    {"screens", ""},
    {"screens/parts",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes reports transfer aids today"},
    {"screens/text", "basics platform core barcodes rich_text screens/parts"},
    {"screens/cookbook",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes reports transfer aids today screens/parts screens/text"},
    {"screens/frame",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes reports transfer aids today screens/parts screens/text screens/pantry "
     "screens/lookups screens/cookbook screens/planner screens/grocery screens/reports "
     "screens/scanning screens/exchange screens/aids screens/today"},
    {"command_line",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes reports transfer aids today platform_disk"},
    {"app",
     "basics platform core core/project_file core/project inventory recipes shopping planning "
     "barcodes reports transfer aids today rich_text platform_disk platform_web platform_services "
     "platform_qt screens screens/parts screens/text screens/pantry screens/lookups "
     "screens/cookbook screens/planner screens/grocery screens/reports screens/scanning "
     "screens/exchange screens/aids screens/today screens/frame command_line"},
};

// These all may the same.
const char* const other_screens[] = {"screens/pantry",   "screens/lookups", "screens/planner",
                                     "screens/grocery",  "screens/reports", "screens/scanning",
                                     "screens/exchange", "screens/aids",    "screens/today"};
const char* const of_other_screens =
    "basics platform core core/project_file core/project inventory recipes shopping planning "
    "barcodes reports transfer aids today screens/parts";

std::map<std::string, std::string> all_expected() {
    std::map<std::string, std::string> all = expected;
    for (const char* screen : other_screens) all[screen] = of_other_screens;
    return all;
}

bool holds_word(const std::string& words, const std::string& wanted) {
    std::istringstream stream(words);
    for (std::string word; stream >> word;) {
        if (word == wanted) return true;
    }
    return false;
}

TEST(BrokenArrows, EveryPairOfRoomsIsJudged) {
    const auto rooms = all_expected();
    ASSERT_EQ(rooms.size(), 35u);
    for (const auto& [room, allowed] : rooms) {
        for (const auto& [target, unused] : rooms) {
            EXPECT_EQ(arrow(room, target).empty(), room == target || holds_word(allowed, target))
                << room << " -> " << target;
        }
    }
}

TEST(RoomOf, FoldersBelowARoomAreOfThatRoom) {
    EXPECT_EQ(room_of("reports/html/page.h"), "reports");
    EXPECT_EQ(room_of("reports/pages/week/page.h"), "reports");
    EXPECT_EQ(room_of("core/project/audit.h"), "core/project");
    EXPECT_EQ(room_of("core/project/undo/steps.h"), "core/project");
    EXPECT_EQ(room_of("core/rows.h"), "core");
    EXPECT_EQ(room_of("screens/precompiled.h"), "screens");
    EXPECT_EQ(room_of("screens/pantry/LotView.h"), "screens/pantry");
}

TEST(RoomOf, CoreAndScreensNameTheirRooms) {
    EXPECT_EQ(room_of("core/tables/items.h"), "");
    EXPECT_EQ(room_of("screens/attic/Box.h"), "");
    EXPECT_EQ(room_of("a.h"), "");
    EXPECT_EQ(room_of("misc/a.h"), "");
}

TEST(BrokenArrows, AreNamedByFileAndLine) {
    const SourceTree tree = {{"basics/a.h", "#pragma once\n\n#include \"core/b.h\"\n"},
                             {"core/b.h", ""}};
    EXPECT_EQ(broken_arrows(tree), Offences{"basics/a.h:3 must not include core/b.h"});
}

TEST(BrokenArrows, FilesBesideAndFurtherDownAreOfTheSameRoom) {
    EXPECT_TRUE(
        broken_arrows({{"reports/html/page.cpp", "#include \"page.h\"\n#include \"../list.h\"\n"},
                       {"reports/html/page.h", ""},
                       {"reports/list.h", ""}})
            .empty());
}

TEST(BrokenArrows, RoundaboutSpellingsAreSeen) {
    const std::string offence = "platform/a.cpp:1 must not include core/b.h";
    for (const char* line :
         {"#include \"../core/b.h\"", "  #  include   \"core/b.h\"", "#include <core/b.h>",
          "#include\"core/b.h\"", "#include \"./core/b.h\"", "#include \"basics/../core/b.h\"",
          "#include \"core/b.h\"  // only the names", "#include \"core/b.h\"\r"}) {
        const SourceTree tree = {{"platform/a.cpp", line}, {"core/b.h", ""}};
        EXPECT_EQ(broken_arrows(tree), Offences{offence}) << line;
    }
}

TEST(BrokenArrows, AMissingFileOfAnUpperRoomIsAnOffenceAllTheSame) {
    EXPECT_EQ(broken_arrows({{"core/a.cpp", "#include \"screens/gone.h\"\n"}}),
              Offences{"core/a.cpp:1 must not include screens/gone.h"});
}

TEST(BrokenArrows, LeavingTheSourcesIsAnOffence) {
    EXPECT_EQ(broken_arrows({{"core/a.cpp", "#include \"../../tests/fakes/b.h\"\n"}}),
              Offences{"core/a.cpp:1 leaves src/ for ../tests/fakes/b.h"});
}

TEST(BrokenArrows, UnknownRoomsAreAnOffence) {
    EXPECT_EQ(broken_arrows({{"misc/a.h", ""}}), Offences{"misc/a.h lies in no known room"});
    EXPECT_EQ(broken_arrows({{"a.h", ""}}), Offences{"a.h lies in no known room"});
}

TEST(BrokenArrows, SystemHeadersAndPlainTextAreNone) {
    EXPECT_TRUE(broken_arrows({{"basics/a.cpp",
                                "#include <string>\n#include <sys/stat.h>\n"
                                "// #include \"core/b.h\"\nauto text = \"#include <core/b.h>\";\n"},
                               {"core/b.h", ""}})
                    .empty());
}

}  // namespace
}  // namespace tavernook::structure
