// The pool of long texts: manufacturer, brand, description, notes and locations of the items. A
// text stands once in pooled_strings and items hold its row; row 0 means no text, an empty row is
// free. There is no count of references: whether a row is shared is found by scanning the items.
// All comparisons trim blanks on both sides and tell upper from lower case.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

// The text of a row. A reference that is no row at all, as a damaged file can hold, is no text.
std::string_view pooled_text(i16 row) noexcept;

// The text as a row would hold it: without the blanks around it, and cut at 65,535 characters.
std::string_view storable_text(std::string_view text) noexcept;

// The first free row. When the search reaches the last row a box says so, and the last row is
// the result whether it is free or not.
i16 find_free_string() noexcept;

// 0 when the text is not in the pool or blank.
i16 find_string(std::string_view text) noexcept;

// The row that holds the text, a new one where needed; 0 for blank text. A row holds 65,535
// characters; what is longer is cut.
i16 add_string(std::string_view text) noexcept;

// True when at least two fields of items hold the text; items that are not live count as well.
bool is_string_shared(std::string_view text) noexcept;

// True when the row was freed, false when it is shared.
bool release_string(std::string_view text) noexcept;

// The row that a field takes when its text changes. A text that only this field held is
// overwritten in place, also when the new text stands in another row already.
i16 change_string(std::string_view old_text, std::string_view new_text) noexcept;

// Whether the text stands in the pool or finds a free row in front of the last one.
bool has_room_for_string(std::string_view text) noexcept;

// While one lives, find_free_string, find_string and add_string know where every text stands and do
// not search: for imports, which add tens of thousands. The answers are the same. Nothing but
// add_string may write the pool meanwhile. They do not nest.
class IndexedStrings {
  public:
    IndexedStrings();
    ~IndexedStrings();
    IndexedStrings(const IndexedStrings&) = delete;
    IndexedStrings& operator=(const IndexedStrings&) = delete;
};

// For the support desk: a box with the number of texts in the pool.
void show_string_count() noexcept;

}  // namespace tavernook
