// The audit: what turns the plan into stock. Planned items and recipes of every day that has come
// are taken out of the lots, once a day.
#pragma once

namespace tavernook {

// Consumes each live day earlier than now + audit_days_ahead that is not yet audited, in slot
// order, items before recipes (planning/consumption); an entry that the lots cannot cover or that
// names none is passed over, and so is a day whose date no calendar has. Then it rebuilds
// expiring_items, saves where save_after_audit says so, and rebuilds the shopping list. The message
// panel tells how many days it were, where there were any. A planned item whose serving size is 0 is a failure: it shows its box and ends the audit at once. The days
// before it stay audited, its own day is not marked, and what that day took so far stays taken.
void audit_inventory() noexcept;

// The days that it would consume now.
int count_due_days() noexcept;

}  // namespace tavernook
