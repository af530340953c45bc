#include "core/project/daily_audit.h"

#include <string>

#include "core/program_state.h"
#include "core/project/audit.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "shopping/shopping_list.h"

namespace tavernook {

i16 audit_done_flag = i16_false;

namespace {

bool audit_waits = false;  // its minute has come, and a box stood open

bool is_audit_minute(const TimeOfDay& now) {
    const bool hour_fits = now.hour == audit_hour || now.hour == audit_hour - 12;
    return hour_fits && now.minute == audit_minute;
}

void check_clock() {
    const TimeOfDay now = time_from_date(platform_clock().now());
    if (audit_done_flag == 0 && project_open != 0 && is_audit_minute(now)) {
        audit_done_flag = i16_true;
        audit_waits = true;
    }
    if (audit_waits && project_open != 0 && !boxes().is_open()) {
        audit_waits = false;
        audit_and_list();
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

void audit_and_list() noexcept {
    audit_inventory();
    build_shopping_list();
    if (ports::ShoppingList* list = shopping_list()) list->populate_list();
}

void daily_audit_check() noexcept {
    trap(check_clock, end_after);
}

void drop_waiting_audit() noexcept {
    audit_waits = false;
}

void audit_now() noexcept {
    trap_in_main("Audit_Now", [] {
        if (ports::MealPlan* planner = meal_plan()) planner->CalendarUpdate(ports::month_in_view);
        audit_and_list();
        ports::MealPlan* planner = meal_plan();
        if (planner == nullptr) return;
        planner->populate_day();
        planner->set_firstcall();
    });
}

}  // namespace tavernook
