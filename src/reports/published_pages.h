// What makes the pages that are published; see reports/publishing.
#pragma once

#include "reports/publishing.h"

namespace tavernook {

PageBuilders published_pages() noexcept;

// The page of the shopping list: with the columns that its screen shows, and with all of them where
// the screen is closed. False, without a box, when it could not be made: an older page is as it
// was.
[[nodiscard]] bool build_list_page(i16 size) noexcept;

}  // namespace tavernook
