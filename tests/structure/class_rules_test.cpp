#include "structure/class_rules.h"

#include "structure/code_text.h"
#include "structure/program_tree.h"

namespace tavernook::structure {
namespace {

TEST(SourceTree, AClassStandsInItsHeaderAndOneSource) {
    const Offences offences = scattered_classes(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

TEST(SourceTree, NoScreenOrPaneIsLong) {
    const Offences offences = long_screen_classes(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

TEST(SourceTree, ScreensLeaveTheTrappingToTheirParts) {
    const Offences offences = stray_traps(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

TEST(CodeText, IsWithoutCommentsAndQuotedTexts) {
    EXPECT_EQ(code_of("a // b\nc"), "a     \nc");
    EXPECT_EQ(code_of("a /* b\n */ c"), "a     \n    c");
    EXPECT_EQ(code_of("f(\"a // b\");"), "f(\"      \");");
    EXPECT_EQ(code_of("f(\"\\\"(\");"), "f(\"   \");");
    EXPECT_EQ(code_of("x = '\"'; // y"), "x = ' ';     ");
    EXPECT_EQ(code_of("n = 1'000; y"), "n = 1'000; y");
    EXPECT_EQ(code_of("R\"x(a \" )x\" b"), "R\"        \" b");
    EXPECT_EQ(code_of("\"open\nnext"), "\"    \nnext");
}

TEST(CodeText, OnlyLinesOfCodeAreCounted) {
    EXPECT_EQ(code_lines(""), 0);
    EXPECT_EQ(code_lines("\n  \n// a\n/* b\n c */\n"), 0);
    EXPECT_EQ(code_lines("a;\n\n}  // b\n\"text\"\n"), 3);
}

const SourceTree pantry = {
    {"screens/pantry/Shelf.h", "class Shelf : public Screen {\n  public:\n    void a();\n};\n"},
    {"screens/pantry/Shelf.cpp", "Shelf::Shelf() {}\nvoid Shelf::a() {}\n"}};

TEST(ScatteredClasses, OneSourceBesideTheHeaderIsEnough) {
    EXPECT_TRUE(scattered_classes(pantry).empty());
}

TEST(ScatteredClasses, ASecondSourceIsAnOffence) {
    for (const char* method :
         {"void Shelf::b() {", "Shelf::~Shelf() {", "std::vector<i16> Shelf::rows() const {",
          "const QString& Shelf::name() {", "Shelf::Rows Shelf::rows(",
          "bool Shelf::operator==("}) {
        SourceTree tree = pantry;
        tree["screens/pantry/shelf_rows.cpp"] = std::string(method) + "\n}\n";
        EXPECT_EQ(scattered_classes(tree),
                  Offences{"Shelf of screens/pantry/Shelf.h has its methods in "
                           "screens/pantry/Shelf.cpp, screens/pantry/shelf_rows.cpp"})
            << method;
    }
}

TEST(ScatteredClasses, CallsAndCommentsAreNoDefinitions) {
    SourceTree tree = pantry;
    tree["screens/pantry/other.cpp"] =
        "// void Shelf::b() {\nvoid f() {\n    Shelf::a();\n    auto x = &Shelf::a;\n}\n"
        "const auto table = &Shelf::a;\nvoid Board::b() {}\n";
    EXPECT_TRUE(scattered_classes(tree).empty());
}

TEST(ScatteredClasses, PlainRecordsAndLogicCountAsWell) {
    const SourceTree tree = {{"core/a.h", "\nstruct Walk final {\n    void go();\n};\n"},
                             {"core/a.cpp", "void Walk::go() {}\n"},
                             {"core/b.cpp", "int Walk::steps() {}\n"}};
    EXPECT_EQ(scattered_classes(tree),
              Offences{"Walk of core/a.h has its methods in core/a.cpp, core/b.cpp"});
}

std::string repeated(const std::string& line, int count) {
    std::string text;
    for (int n = 0; n < count; ++n) text += line;
    return text;
}

TEST(LongScreenClasses, HeaderAndSourceCountTogether) {
    SourceTree tree = pantry;  // 4 lines and 2
    tree["screens/pantry/Shelf.cpp"] += repeated("\n// why\nint x;\n", 344);
    EXPECT_TRUE(long_screen_classes(tree).empty());
    tree["screens/pantry/Shelf.h"] += "int y;\n";
    EXPECT_EQ(long_screen_classes(tree),
              Offences{"Shelf of screens/pantry/Shelf.h has 351 lines of code"});
}

TEST(LongScreenClasses, OtherRoomsAndClassesWithoutABaseAreNone) {
    const std::string lines = repeated("int x;\n", 400);
    EXPECT_TRUE(long_screen_classes({{"core/a.h", "class A : public B {\n};\n" + lines},
                                     {"screens/pantry/b.h", "struct B {\n};\n" + lines}})
                    .empty());
}

TEST(StrayTraps, AreSeenOutsideTheParts) {
    const std::string text = "void f() {\n    trap_in_screen([] {});\n    trap (a, b);\n}\n";
    EXPECT_EQ(stray_traps({{"screens/pantry/a.cpp", text}}),
              (Offences{"screens/pantry/a.cpp:2 traps Faults by itself",
                        "screens/pantry/a.cpp:3 traps Faults by itself"}));
    EXPECT_TRUE(stray_traps({{"screens/parts/a.cpp", text}, {"recipes/a.cpp", text}}).empty());
}

TEST(StrayTraps, OtherWordsAreNone) {
    EXPECT_TRUE(stray_traps({{"screens/pantry/a.cpp",
                              "// trap(a)\nmousetrap(a);\ntraps(b);\nauto x = \"trap(\";\n"}})
                    .empty());
}

}  // namespace
}  // namespace tavernook::structure
