// The tree of the recipe manager: what hangs where, moving, renaming and finding.
#include <QClipboard>
#include <QMenu>
#include <memory>

#include "screens/cookbook/mealbuilder_fixture.h"
#include "screens/cookbook/row_keys.h"

namespace tavernook {
namespace {

class RecipeTree : public MealbuilderTest {};

TEST_F(RecipeTree, HangsCategoriesAndRecipesOnGeneral) {
    put_household();
    put_catagory(3, "Sweet", 2);
    put_catagory(4, "Dairy", 0, -1);
    put_recipe(4, "Waffles", 3);
    open();
    EXPECT_EQ(rows(), "[General [Breakfast [Sweet Waffles ] Pancakes Porridge ] Stew ] ");
    EXPECT_TRUE(tree().isExpanded(model().index_of("3r")));
    for (const char* key : {"r0", "2r", "3r", "1c", "4c"}) {
        const QModelIndex index = model().index_of(QLatin1String(key));
        EXPECT_EQ(index.data(CatagoryTreeModel::key_role).toString().toStdString(), key);
    }
    EXPECT_FALSE(model().index_of("4r").isValid());
    EXPECT_FALSE(part<QLabel>("tree_hint").isVisible());
}

TEST_F(RecipeTree, IsEmptyWithAHintAtFirst) {
    open();
    EXPECT_EQ(rows(), "[General ] ");
    EXPECT_TRUE(part<QLabel>("tree_hint").isVisible());
    EXPECT_EQ(label("tree_hint"), "Press \"New Recipe\" to write your first recipe.");
}

TEST_F(RecipeTree, KeysGiveTheirNumbers) {
    EXPECT_EQ(catagory_in_key("12r"), 12);
    EXPECT_EQ(catagory_in_key("root"), 0);
    EXPECT_EQ(catagory_in_key("r0"), 0);
    EXPECT_EQ(catagory_in_key("12c"), 0);
    EXPECT_EQ(recipe_in_key("1000c"), 1000);
    EXPECT_EQ(recipe_in_key("7r"), 0);
    EXPECT_EQ(recipe_in_key(""), 0);
    EXPECT_EQ(item_in_key("17t"), 17);
    EXPECT_EQ(item_in_key("t"), 0);
}

TEST_F(RecipeTree, CirclesAndMissingParentsHideNoRecipe) {
    put_catagory(2, "Round", 3);
    put_catagory(3, "And Round", 2);
    put_catagory(4, "Itself", 4);
    put_catagory(5, "Orphan", 99);
    put_catagory(6, "Beyond", 30000);
    put_catagory(7, "Dairy", 0, -1);
    put_recipe(1, "A", 2);
    put_recipe(2, "B", 4);
    put_recipe(3, "C", 5);
    put_recipe(4, "D", 77);
    put_recipe(5, "E", -3);
    put_recipe(6, "F", 32000);
    put_recipe(7, "G", 7);
    open();
    EXPECT_EQ(rows(),
              "[General [And Round ] [Beyond ] [Itself B ] [Orphan C ] [Round A ] D E F G ] ");
}

TEST_F(RecipeTree, ARecipeMovesToTheCategoryItIsDroppedOn) {
    put_household();
    open();
    mark("3c");
    project_modified = i16_false;
    EXPECT_TRUE(drop(tree(), middle_of("2r"), "m3"));
    EXPECT_EQ(meals[3].category, 2);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge Stew ] ] ");
    EXPECT_EQ(marked(), "3c");
    EXPECT_TRUE(drop(tree(), middle_of("r0"), "m1"));
    EXPECT_EQ(meals[1].category, 0);
    EXPECT_EQ(rows(), "[General [Breakfast Porridge Stew ] Pancakes ] ");
}

TEST_F(RecipeTree, NothingElseIsTakenByADrop) {
    put_household();
    open();
    const QRect stew = tree().visualRect(model().index_of("3c"));
    EXPECT_FALSE(drop(tree(), stew.center(), "m1"));
    EXPECT_FALSE(drop(tree(), QPoint(stew.center().x(), stew.top() + 1), "m1"));
    EXPECT_FALSE(drop(tree(), QPoint(stew.center().x(), stew.bottom() - 1), "m1"));
    EXPECT_FALSE(drop(tree(), QPoint(10, tree().viewport()->height() - 5), "m1"));
    for (const char* text : {"i7", "m9", "m0", "m1001", "m3:1", "mm", "3", ""}) {
        EXPECT_FALSE(drop(tree(), middle_of("2r"), text)) << text;
    }
    EXPECT_EQ(meals[1].category, 2);
    EXPECT_EQ(meals[3].category, 0);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeTree, RecipesAreDraggedByTheirNumber) {
    put_household();
    open();
    const std::unique_ptr<QMimeData> recipe(model().mimeData({model().index_of("3c")}));
    ASSERT_NE(recipe, nullptr);
    EXPECT_EQ(recipe->text(), "m3");
    EXPECT_EQ(model().mimeData({model().index_of("2r")}), nullptr);
    EXPECT_EQ(model().mimeData({model().index_of("r0")}), nullptr);
    EXPECT_TRUE(model().flags(model().index_of("3c")) & Qt::ItemIsDragEnabled);
    EXPECT_FALSE(model().flags(model().index_of("2r")) & Qt::ItemIsDragEnabled);
}

TEST_F(RecipeTree, F2RenamesARecipe) {
    put_household();
    open();
    tree().setFocus();
    mark("3c");
    project_modified = i16_false;
    press("F2");
    type_name("  Beef Stew ");
    EXPECT_EQ(meals[3].name.trimmed(), "Beef Stew");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge ] Beef Stew ] ");
    EXPECT_EQ(marked(), "3c");
    EXPECT_EQ(label("recipe_heading"), "Beef Stew");
}

TEST_F(RecipeTree, F2RenamesACategory) {
    put_household();
    open();
    tree().setFocus();
    mark("2r");
    press("F2");
    type_name("Morning");
    EXPECT_EQ(catagories[2].name.trimmed(), "Morning");
    EXPECT_EQ(rows(), "[General [Morning Pancakes Porridge ] Stew ] ");
    EXPECT_EQ(marked(), "2r");
}

TEST_F(RecipeTree, EnterAndInsertInANameLeaveTheTreeAlone) {
    put_household();
    open();
    tree().setFocus();
    mark("2r");
    press("F2");
    QTest::keyClick(tree().indexWidget(tree().currentIndex()), Qt::Key_Insert);
    type_name("Morning");
    EXPECT_TRUE(tree().isExpanded(model().index_of("2r")));
    EXPECT_EQ(focused(), "recipe_tree");
    EXPECT_EQ(catagories[2].name.trimmed(), "Morning");
}

TEST_F(RecipeTree, ANameThatIsBeingTypedOutlastsChangesElsewhere) {
    put_household();
    open();
    tree().setFocus();
    mark("3c");
    press("F2");
    meals[2].name = "Oatmeal";
    end_of_step();
    ASSERT_NE(tree().indexWidget(tree().currentIndex()), nullptr);
    press("Escape");
    settle();
    settle();
    EXPECT_EQ(rows(), "[General [Breakfast Oatmeal Pancakes ] Stew ] ");
}

TEST_F(RecipeTree, TheRootCannotBeGivenANewName) {
    open();
    tree().setFocus();
    mark("r0");
    platform.boxes.expect_message("Can't Change name of GENERAL Category");
    press("F2");
    EXPECT_EQ(tree().viewport()->findChild<QLineEdit*>(), nullptr);
    EXPECT_FALSE(model().setData(model().index_of("r0"), "Home", Qt::EditRole));
    EXPECT_EQ(rows(), "[General ] ");
}

TEST_F(RecipeTree, AnEmptyNameIsRefusedAndALongOneIsCut) {
    put_household();
    open();
    tree().setFocus();
    mark("3c");
    project_modified = i16_false;
    press("F2");
    type_name("   ");
    EXPECT_EQ(meals[3].name.trimmed(), "Stew");
    EXPECT_EQ(project_modified, i16_false);
    press("F2");
    type_name("A name of more than thirty-two letters");
    EXPECT_EQ(meals[3].name.trimmed(), "A name of more than thirty-two l");
}

TEST_F(RecipeTree, FindingShowsOnlyWhatMatches) {
    put_household();
    put_recipe(4, "Cr\xEApes", 2);
    open();
    press("Ctrl+F");
    EXPECT_EQ(focused(), "filter");
    type("CREPE");
    EXPECT_EQ(rows(), "[General [Breakfast Cr\u00EApes ] ] ");
    press("Return");
    settle();
    EXPECT_EQ(screen().get_mealid(), 4);
    EXPECT_EQ(focused(), "recipe_tree");
    press("/");
    type("nothing");
    EXPECT_EQ(rows(), "[General ] ");
    EXPECT_FALSE(model().index_of("2r").isValid());
    EXPECT_EQ(label("tree_hint"), "No recipe matches. Esc shows all recipes again.");
    press("Escape");
    EXPECT_EQ(rows(), "[General [Breakfast Cr\u00EApes Pancakes Porridge ] Stew ] ");
    EXPECT_EQ(marked(), "4c");
}

TEST_F(RecipeTree, CategoriesStayClosedOverARefresh) {
    put_household();
    open();
    tree().collapse(model().index_of("2r"));
    mark("3c");
    command("Toolbar1_4");
    EXPECT_FALSE(tree().isExpanded(model().index_of("2r")));
    EXPECT_EQ(marked(), "3c");
    tree().setFocus();
    mark("2r");
    press("Return");
    EXPECT_TRUE(tree().isExpanded(model().index_of("2r")));
}

TEST_F(RecipeTree, ARowIsCopiedAsText) {
    put_household();
    open();
    tree().setFocus();
    mark("3c");
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "Stew");
}

TEST_F(RecipeTree, ItsMenuOffersTheCommands) {
    put_household();
    open();
    mark("3c");
    std::vector<std::string> offered;
    QTimer::singleShot(0, &window, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (const QAction* action : menu->actions()) {
            if (!action->isSeparator()) offered.push_back(action->iconText().toStdString());
        }
        menu->close();
    });
    Q_EMIT tree().customContextMenuRequested(QPoint(4, 4));
    EXPECT_EQ(offered, (std::vector<std::string>{"New Recipe", "New Category", "Rename", "Delete",
                                                 "Add to Plan"}));
}

}  // namespace
}  // namespace tavernook
