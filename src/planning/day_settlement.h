// What the stock gets back when an audited day is changed.
#pragma once

#include "basics/values.h"

namespace tavernook {

// Asks for each planned item, then for each planned recipe, whether the stock gets its amount back,
// and gives it back on Yes. The day's flag is not looked at and its places stay. What the audit
// could not take, entries that name no live item or recipe, gives nothing back. A place whose
// amount cannot be worked out (a serving size of 0) keeps nobody else's stock back: all others are
// settled first, then one box, "there has been an error", tells of the items; a recipe's comes at
// once. What goes while its question stands open gives nothing back, and when the day goes, no more
// is asked. False when a box of failure was shown, also for a day outside 1..1095.
bool release_audited_day(i16 day) noexcept;

// The command "edit audited day" on current_day: it counts as not audited, then it is settled with
// the stock, grid and list are redrawn.
void edit_audited_day() noexcept;

}  // namespace tavernook
