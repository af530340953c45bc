// What is dragged: "i" and an item's number, "m" and a recipe's.
#include "screens/parts/drag_text.h"

#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/program_state_reset.h"

namespace tavernook {
namespace {

class DragText : public testing::Test {
  protected:
    DragText() {
        reset_program_state();
        items[7].in_use = 1;
        meals[3].in_use = 1;
    }
    ~DragText() override { reset_program_state(); }
};

TEST_F(DragText, IsReadAsItIsWritten) {
    EXPECT_EQ(text_of_dragged_item(7), "i7");
    EXPECT_EQ(text_of_dragged_recipe(3), "m3");
    EXPECT_EQ(dragged(text_of_dragged_item(7)).item(), 7);
    EXPECT_EQ(dragged(text_of_dragged_item(7)).recipe(), 0);
    EXPECT_EQ(dragged(text_of_dragged_recipe(3)).recipe(), 3);
    EXPECT_EQ(dragged(text_of_dragged_recipe(3)).item(), 0);
    EXPECT_TRUE(dragged("m3").is_recipe);
}

TEST_F(DragText, NamesLiveItemsAndRecipesOnly) {
    for (const char* text : {"i8", "m7", "i3", "i0", "m-3", "i99999", "i10001", "m32767"}) {
        EXPECT_EQ(dragged(text).number, 0) << text;
    }
}

TEST_F(DragText, TextFromElsewhereIsNothing) {
    for (const char* text : {"", "i", "m", "7", "x7", "I7", "i7a", "milk", "i 7 8", "i7.0"}) {
        EXPECT_EQ(dragged(text).number, 0) << text;
    }
}

}  // namespace
}  // namespace tavernook
