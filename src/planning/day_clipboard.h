// Copy, Cut, Paste and Delete of whole days, as the popup of a date and its keys do them. A
// settlement with the stock that fails shows its box and the day goes all the same, so that no
// stock is given back twice. What a date outside the calendar stops is told by the command of the
// screen.
#pragma once

#include "basics/date.h"

namespace tavernook {

// Remembers current_day and the selected date; day_clipboard.filled is what enables Paste. Fault 6
// for a selected date outside the years 1..9999; nothing is remembered then.
void copy_selected_day();
void cut_selected_day();

// Lays the day remembered over the date; true when that was carried out. Only then a cut day goes,
// an audited one after its settlement with the stock, and the clipboard is empty. A cut day stays
// where its own date is pasted onto. Fault 6 as above; nothing has changed then.
bool paste_day(Date date);

// An audited day is settled with the stock first. Fault 6 as above; nothing has changed then.
void delete_day_of(Date date);

}  // namespace tavernook
