#include "core/project/daily_audit.h"

#include <string>

#include "core/program_state.h"
#include "core/project/audit.h"
#include "core/project_data.h"
#include "core/project_settings.h"
#include "core/trap.h"
#include "platform/ftp_export.h"
#include "platform/platform.h"
#include "shopping/shopping_list.h"

namespace tavernook {

i16 audit_done_flag = i16_false;

namespace {

bool audit_waits = false;  // its minute has come

bool is_audit_minute(const TimeOfDay& now) {
    const bool hour_fits = now.hour == audit_hour || now.hour == audit_hour - 12;
    return hour_fits && now.minute == audit_minute;
}

void look_at_clock() {
    const TimeOfDay now = time_from_date(platform_clock().now());
    if (now.minute != audit_minute) audit_done_flag = i16_false;
    if (audit_done_flag != 0 || project_open == 0 || !is_audit_minute(now)) return;
    audit_done_flag = i16_true;
    audit_waits = true;
}

// Nobody need be there: what is missing is told in the status bar, and the window goes by itself.
void publish_unattended() {
    if (ftp_send_after_audit == 0) return;
    if (!ftp_account_is_complete()) {
        main_window().set_status(message_panel, incomplete_ftp_account);
        return;
    }
    ports::FtpExport* window = ftp_export();
    if (window == nullptr) return;
    window->setstyle(1);
    window->show();
}

void run_waiting_audit() {
    if (audit_waits && project_open != 0 && !boxes().is_open()) {
        audit_waits = false;
        audit_and_list();
        publish_unattended();
    }
    main_window().set_status(activity_panel, "Ready");
}

void end_after(const Fault& fault) {
    show_fault(
        "There has been an error in the Tavernook software.  Please report the error number " +
        std::to_string(fault.number) + " to Brenwyk Software.  Tavernook will now close.");
    main_window().end_program();
}

}  // namespace

void audit_and_list() noexcept {
    audit_inventory();
    build_shopping_list();
    if (ports::ShoppingList* list = shopping_list()) list->populate_list();
}

void note_audit_minute() noexcept {
    trap(look_at_clock, end_after);
}

void daily_audit_check() noexcept {
    const auto check = [] {
        look_at_clock();
        run_waiting_audit();
    };
    trap(check, end_after);
}

void drop_waiting_audit() noexcept {
    audit_waits = false;
}

void audit_now() noexcept {
    trap_in_main("Audit_Now", [] {
        if (ports::MealPlan* planner = meal_plan()) planner->CalendarUpdate(ports::month_in_view);
        if (count_due_days() == 0) {
            main_window().set_status(message_panel, "No planned day was left to audit.");
        }
        audit_and_list();
        ports::MealPlan* planner = meal_plan();
        if (planner == nullptr) return;
        planner->populate_day();
        planner->set_firstcall();
    });
}

}  // namespace tavernook
