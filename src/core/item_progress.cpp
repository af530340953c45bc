#include "core/item_progress.h"

#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

ItemProgress::ItemProgress(std::string_view caption, std::string_view label) {
    save_progress().load(caption, label);
    save_progress().show();
}

ItemProgress::~ItemProgress() {
    save_progress().unload();
}

void ItemProgress::at_item(int item) {
    constexpr int items_a_percent = item_capacity / 100;
    if (item % items_a_percent == 0) save_progress().workbar(item / items_a_percent);
}

}  // namespace tavernook
