// What the stock gets back when an audited day is changed.
#pragma once

#include "basics/values.h"

namespace tavernook {

// Asks for each planned item, then for each planned recipe, whether the stock gets its amount back,
// and gives it back on Yes. The day's flag is not looked at and its places stay. A place whose
// amount cannot be worked out (serving size 0, a slot outside the tables) keeps nobody else's stock
// back: all others are settled first, then its Fault is thrown.
void release_audited_day(i16 day);

// The command "edit audited day" on current_day: it counts as not audited, then it is settled with
// the stock, grid and list are redrawn. A Fault of the settlement shows "there has been an error".
void edit_audited_day();

}  // namespace tavernook
