// Copy, Cut, Paste and Delete of whole days, as the popup of a date and its keys do them. Fault 6
// for dates outside the years 1..9999, nothing has changed then. A Fault in the settlement with the
// stock shows "there has been an error" and the day goes all the same, so that no stock is given
// back twice.
#pragma once

#include "basics/date.h"

namespace tavernook {

// Remembers current_day and the selected date; day_clipboard.filled is what enables Paste.
void copy_selected_day();
void cut_selected_day();

// Lays the day remembered over the date; true when that was carried out. Only then a cut day goes,
// an audited one after its settlement with the stock, and the clipboard is empty. A cut day stays
// where its own date is pasted onto.
bool paste_day(Date date);

// An audited day is settled with the stock first.
void delete_day_of(Date date);

}  // namespace tavernook
