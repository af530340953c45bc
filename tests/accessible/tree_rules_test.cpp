// The rules, on trees that break them.
#include "accessible/tree_rules.h"

#include <gtest/gtest.h>

namespace tavernook {
namespace {

FarPart part(FarRole role, const char* name, std::initializer_list<FarState> states = {},
             std::vector<FarPart> children = {}) {
    FarPart made;
    made.role = role;
    made.role_name = QStringLiteral("part");
    made.name = QLatin1String(name);
    for (const FarState state : states) made.states |= std::uint64_t{1} << static_cast<int>(state);
    made.children = std::move(children);
    return made;
}

FarPart in_focus_order(FarRole role, const char* name) {
    return part(role, name, {FarState::showing, FarState::focusable});
}

FarPart window(std::vector<FarPart> children) {
    return part(FarRole::frame, "Window", {FarState::showing}, std::move(children));
}

FarPart list(int columns, std::vector<FarPart> children) {
    FarPart made = part(FarRole::tree, "List", {FarState::showing}, std::move(children));
    made.columns = columns;
    return made;
}

FarPart cell(const char* text) {
    return in_focus_order(FarRole::tree_item, text);
}

FarPart title(const char* text) {
    return part(FarRole::column_header, text, {FarState::showing});
}

std::string told(const QStringList& faults) {
    return faults.join(QLatin1Char('|')).toStdString();
}

TEST(TreeRules, WhatTakesTheFocusHasAName) {
    EXPECT_EQ(told(parts_without_a_name(window({in_focus_order(FarRole::text, "")}))),
              "part at /Window/part");
    EXPECT_EQ(told(parts_without_a_name(window({in_focus_order(FarRole::text, "Name")}))), "");
    EXPECT_EQ(told(parts_without_a_name(window({part(FarRole::text, "", {FarState::showing})}))),
              "");
    EXPECT_EQ(told(parts_without_a_name(window({part(FarRole::text, "", {FarState::focusable})}))),
              "");
}

TEST(TreeRules, ABoxToChooseFromIsNamedByItsLabel) {
    FarPart box = in_focus_order(FarRole::combo_box, "kcal");
    EXPECT_EQ(told(parts_without_a_name(window({box}))), "part at /Window/kcal");
    box.labelled_by = QStringLiteral("Unit");
    EXPECT_EQ(told(parts_without_a_name(window({box}))), "");
}

TEST(TreeRules, AValueIsNoName) {
    FarPart field = in_focus_order(FarRole::text, "Milk");
    field.text = QStringLiteral("milk ");
    EXPECT_EQ(told(values_as_names(window({field}))), "part at /Window/Milk: milk ");
    field.name = QStringLiteral("Item");
    EXPECT_EQ(told(values_as_names(window({field}))), "");
}

TEST(TreeRules, EveryRowSaysSomething) {
    EXPECT_EQ(told(silent_rows(window(
                  {list(2, {title("A"), title("B"), cell("1"), cell(""), cell(""), cell("")})}))),
              "row 1 of /Window/List");
    EXPECT_EQ(told(silent_rows(window({list(1, {title("A"), cell("1")})}))), "");
}

TEST(TreeRules, AColumnThatSaysSomethingHasATitle) {
    EXPECT_EQ(told(silent_rows(window({list(2, {title("A"), title(""), cell("1"), cell("2")})}))),
              "column 1 of /Window/List");
    EXPECT_EQ(told(silent_rows(window({list(2, {title("A"), title(""), cell("1"), cell("")})}))),
              "");
}

TEST(TreeRules, WhatIsSeenIsHeard) {
    FarPart figure = part(FarRole::label, "Sales tax", {FarState::showing});
    EXPECT_EQ(told(unheard(window({figure}), {"Sales tax", "7.50", "<<"})), "7.50");
    figure.description = QStringLiteral("7.50");
    EXPECT_EQ(told(unheard(window({figure}), {"Sales tax", "7.50", "Tax: 7.50"})), "");
}

}  // namespace
}  // namespace tavernook
