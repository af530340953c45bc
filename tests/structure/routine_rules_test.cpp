#include "structure/routine_rules.h"

#include <set>

#include "structure/program_tree.h"

namespace tavernook::structure {
namespace {

// The few that let a Fault through, because the box is their caller's. Who adds one says in its
// header why, and here.
const std::set<std::string> of_the_caller = {"Add_Item",
                                             "accept_setup",
                                             "add_meal",
                                             "add_recommended_meal",
                                             "add_recommended_meal_unless_zero",
                                             "carry_changed_documents",
                                             "consume_day",
                                             "copy_selected_day",
                                             "create_item",
                                             "create_item_from_form",
                                             "cut_selected_day",
                                             "day_totals",
                                             "delete_day_of",
                                             "may_start_project_at",
                                             "keep_other_content",
                                             "modify_mealplan_qty",
                                             "offer_previous_version",
                                             "paste_day",
                                             "populate_item",
                                             "free_path_beside",
                                             "is_changed_elsewhere",
                                             "is_known_project_file",
                                             "previous_version_exists",
                                             "remove_day_entry",
                                             "remove_if_there",
                                             "replace_file",
                                             "set_previous_version_aside",
                                             "store_document",
                                             "store_document_backup",
                                             "stored_document"};

TEST(SourceTree, EveryRoutineTrapsItsFaultsOrNamesThem) {
    const Offences offences = untold_routines(program());
    EXPECT_TRUE(offences.empty()) << listed(offences);
}

TEST(SourceTree, FewRoutinesLetAFaultThrough) {
    for (const std::string& name : routines_that_let_through(program())) {
        EXPECT_EQ(of_the_caller.count(name), 1u) << name;
    }
}

using Names = std::vector<std::string>;

Names names_in(const std::string& header) {
    Names names;
    for (const Routine& routine : routines_of(header)) names.push_back(routine.name);
    return names;
}

TEST(RoutinesOf, AreTheFunctionsOutsideOfClasses) {
    EXPECT_EQ(
        names_in("#pragma once\n#include <string>\nnamespace tavernook {\nnamespace inner {\n"
                 "i16 one(i16 item);\n[[nodiscard]] std::string two(\n    std::string_view a);\n"
                 "template <typename Work, typename OnFault>\nbool three(Work&& work) {\n"
                 "    return four(work);\n}\nstd::function<void(int)> five(int n = {});\n"
                 "inline bool operator==(A a, B b) { return f(a); }\n}\n}\n"),
        (Names{"one", "two", "three", "five"}));
}

TEST(RoutinesOf, OtherDeclarationsAreNone) {
    EXPECT_EQ(
        names_in("extern i16 a;\ninline constexpr Date b = date(1);\nusing C = void (*)(int);\n"
                 "class D {\n  public:\n    void e();\n    int f() { return 1; }\n};\n"
                 "struct G {\n    i16 h = to_i16(1);\n};\nenum class I { j, k };\n"
                 "static_assert(sizeof(int) == 4);\n#define L(x) m(x)\n// void n();\n"),
        Names{});
}

TEST(RoutinesOf, TellWhereTheyStandAndWhatTheyAre) {
    const std::vector<Routine> found = routines_of(
        "// Head of the file. Fault 9.\n\nvoid a() noexcept;\n\nbool b(\n    int n) noexcept {\n"
        "    c();\n}\nvoid d();\n");
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].line, 3);
    EXPECT_TRUE(found[0].is_noexcept);
    EXPECT_FALSE(found[0].lets_through);
    EXPECT_EQ(found[1].line, 5);
    EXPECT_TRUE(found[1].is_noexcept);
    EXPECT_EQ(found[2].line, 9);
    EXPECT_FALSE(found[2].is_noexcept);
}

bool lets_through(const std::string& header) {
    return routines_of(header).back().lets_through;
}

TEST(RoutinesOf, ACommentNamesTheFault) {
    EXPECT_TRUE(lets_through("// Fault 9 outside the table.\nvoid a();\n"));
    EXPECT_TRUE(lets_through("// Does it. Throws what the file\n// layer throws.\nvoid a();\n"));
    EXPECT_TRUE(lets_through("// In both: Fault\n// 6 beyond 16 bits.\nvoid a();\nvoid b();\n"));
    EXPECT_FALSE(lets_through("// No Fault here.\nvoid a();\n"));
    EXPECT_FALSE(lets_through("// Fault 9.\n\nvoid a();\n"));
    EXPECT_FALSE(lets_through("// Fault 9.\nvoid a();\n\nvoid b();\n"));
    EXPECT_FALSE(lets_through("void a();  // Fault 9\nvoid b();\n"));
}

TEST(UntoldRoutines, AreThoseThatOtherRoomsUse) {
    const SourceTree tree = {
        {"recipes/a.h", "void a();\n// Fault 9 for none.\nvoid b();\n\nvoid c() noexcept;\n"},
        {"recipes/b.h", "void d();\n"},
        {"recipes/b.cpp", "#include \"recipes/b.h\"\n"},
        {"core/trap.h", "void trap();\n"},
        {"screens/cookbook/c.cpp", "#include \"core/trap.h\"\n#include \"recipes/a.h\"\n"}};
    EXPECT_EQ(offered_headers(tree), Names{"recipes/a.h"});
    EXPECT_EQ(untold_routines(tree), Names{"recipes/a.h:1 a is not noexcept and names no Fault"});
    EXPECT_EQ(routines_that_let_through(tree), Names{"b"});
}

TEST(UntoldRoutines, TheBytesOfAProjectAreIndoors) {
    EXPECT_TRUE(offered_headers({{"core/project_file/a.h", "void a();\n"},
                                 {"core/project/b.cpp", "#include \"core/project_file/a.h\"\n"},
                                 {"basics/c.h", "void c();\n"},
                                 {"core/d.cpp", "#include \"basics/c.h\"\n"}})
                    .empty());
}

}  // namespace
}  // namespace tavernook::structure
