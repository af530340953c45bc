#include "core/daily_audit.h"

#include <string>
#include <utility>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

i16 audit_done_flag = i16_false;

namespace {

std::function<void()> audit_job;

bool is_audit_minute(const TimeOfDay& now) {
    const bool hour_fits = now.hour == audit_hour || now.hour == audit_hour - 12;
    return hour_fits && now.minute == audit_minute;
}

void check_clock() {
    const TimeOfDay now = time_from_date(platform_clock().now());
    if (audit_done_flag == 0 && project_open != 0 && is_audit_minute(now)) {
        audit_done_flag = i16_true;
        run_audit();
    }
    if (now.minute != audit_minute) audit_done_flag = i16_false;
    main_window().set_status(activity_panel, "Ready");
}

void end_after(const Fault& fault) {
    show_fault(
        "There has been an error in the Tavernook software.  Please report the error number " +
        std::to_string(fault.number) + " to Brenwyk Software.  Tavernook will now close.");
    main_window().end_program();
}

}  // namespace

void set_audit_job(std::function<void()> job) {
    audit_job = std::move(job);
}

void run_audit() {
    if (audit_job) audit_job();
}

void daily_audit_check() {
    trap(check_clock, end_after);
}

void show_audit_time() {
    std::string time = "-:-";
    if (audit_hour >= 1 && audit_hour <= 24) {
        const bool morning = audit_hour <= 12;
        time = std::to_string(morning ? audit_hour : audit_hour - 12) + ":" +
               format_number(audit_minute, "00") + (morning ? " AM" : " PM");
    }
    main_window().set_status(audit_time_panel, "Audit Time: " + time);
}

}  // namespace tavernook
