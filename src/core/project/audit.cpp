#include "core/project/audit.h"

#include <string>

#include "core/program_state.h"
#include "core/project/project_save.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/shelf_life.h"
#include "inventory/usage_history.h"
#include "planning/consumption.h"
#include "platform/platform.h"
#include "shopping/shopping_list.h"

namespace tavernook {

namespace {

Date end_of_audited_days() {
    return platform_clock().now() + audit_days_ahead;
}

void consume_due_days() {
    const Date limit = end_of_audited_days();
    const HeldUsage usage;
    for (i16 slot = 1; slot <= day_capacity; ++slot) {
        if (is_due(days[slot], limit)) consume_day(slot);
    }
}

void tell_audited(int count) {
    if (count == 0) return;
    main_window().set_status(message_panel,
                             count == 1 ? "1 planned day was audited."
                                        : std::to_string(count) + " planned days were audited.");
}

void rebuild_expiring_items() {
    i16 out = 1;
    for (i16 item = 1; item <= item_capacity; ++item) {
        expiring_items[item] = 0;
        if (nears_end_of_shelf_life(items[item], platform_clock().now())) {
            expiring_items[out++] = item;
        }
        if (item % 100 == 0) save_progress().workbar(item / 100);
    }
}

void audit() {
    const int due = count_due_days();
    main_window().set_status(activity_panel, "Auditing...");
    save_progress().load("Auditing Inventory", "Auditing Inventory...Please Wait");
    save_progress().workbar(0);
    save_progress().show();
    consume_due_days();
    tell_audited(due);
    rebuild_expiring_items();
    if (save_after_audit != 0 && Project_Save(0)) project_modified = i16_false;
    save_progress().unload();
    save_progress().hide();
    if (ports::MealPlan* planner = meal_plan()) planner->CalendarUpdate(ports::month_in_view);
    build_shopping_list();
}

}  // namespace

int count_due_days() noexcept {
    int count = 0;
    const Date limit = end_of_audited_days();
    for (i16 slot = 1; slot <= day_capacity; ++slot) count += is_due(days[slot], limit) ? 1 : 0;
    return count;
}

void audit_inventory() noexcept {
    if (trap_in_module(audit)) return;
    save_progress().hide();
    save_progress().unload();
}

}  // namespace tavernook
