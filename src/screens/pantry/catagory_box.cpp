#include "screens/pantry/catagory_box.h"

#include <QAbstractItemModel>

#include "basics/text.h"
#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

void CatagoryBox::fill() {
    const i16 before = chosen();
    clear();
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        if (!is_item_catagory(row)) continue;
        addItem(shown_text(catagories[row].name.trimmed()), int{row});
    }
    model()->sort(0);
    if (before != 0) choose(before);
}

void CatagoryBox::choose(i16 catagory) {
    setCurrentIndex(findData(int{home_catagory(catagory)}));
}

i16 CatagoryBox::chosen() const {
    return static_cast<i16>(currentData().toInt());
}

i16 CatagoryBox::chosen_for(i16 stored) const {
    return chosen() == home_catagory(stored) ? stored : chosen();
}

i16 ask_new_catagory() {
    const auto name = boxes().input("Enter name of new catagory.", "New Catagory", "");
    if (!name || trim(*name).empty()) return 0;
    constexpr i16 item_catagory_type = -1;
    const i16 row = new_catagory(trim(*name), item_catagory_type, 0);
    project_modified = i16_true;
    return row;
}

}  // namespace tavernook
