// A look at a page from elsewhere before it is taken apart.
#pragma once

#include <QStringView>

namespace tavernook {

// Whether the page can be taken apart without a wait: its tags, how deep they stand in one another,
// its pictures, the cells of its tables and its styles are few enough. Reads it once, and roughly.
bool is_light_page(QStringView html);

}  // namespace tavernook
