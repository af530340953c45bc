// The clock of the daily audit and its place in the status bar.
#pragma once

#include "basics/values.h"

namespace tavernook {

extern i16 audit_done_flag;  // -1 = the audit has run in the present minute

// An audit, then the scan for the shopping list; the list's screen shows it anew.
void audit_and_list() noexcept;

// At each tick of the main window's timer, also below a box and during long work: at the chosen
// minute an audit waits from now on, once in that minute. A time set in the afternoon fires twelve
// hours earlier as well; kept, households rely on it.
void note_audit_minute() noexcept;

// At each tick when the program waits for the user: runs the audit that waits, and publishes the
// project's pages behind it where the project wants that. Nothing is taken out of the stock, saved
// or sent below a box: the audit then runs at the first tick behind it, also when its minute has
// passed.
void daily_audit_check() noexcept;

// The project goes: an audit that waits is none of the next one's.
void drop_waiting_audit() noexcept;

// The command "Audit Now": an audit, and every screen that shows what it changed shows it anew.
void audit_now() noexcept;

}  // namespace tavernook
