// The clock of the daily audit and its place in the status bar.
#pragma once

#include <functional>

#include "basics/values.h"

namespace tavernook {

extern i16 audit_done_flag;  // -1 = the audit has run in the present minute

// What an audit does: takes the plan out of the stock, then rebuilds the shopping list.
// The rooms above hand it over; a program without them audits nothing.
void set_audit_job(std::function<void()> job);
void run_audit();

// At each tick of the main window's timer: runs the audit at the chosen minute, once in that
// minute. A time set in the afternoon fires twelve hours earlier as well; kept, households rely on
// it.
void daily_audit_check();

// "Audit Time: 11:59 PM" in the status bar; "-:-" for hour 0.
void show_audit_time();

}  // namespace tavernook
