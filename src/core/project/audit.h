// The audit: what turns the plan into stock. Planned items and recipes of every day that has come
// are taken out of the lots, once a day.
#pragma once

namespace tavernook {

// Consumes each live day earlier than now + audit_days_ahead that is not yet audited, in slot
// order, items before recipes; an entry that the lots cannot cover shows the box of
// remove_from_lots and is passed over. Then it rebuilds expiring_items, saves where
// save_after_audit says so, and rebuilds the shopping list. A failure shows its box and ends it at
// once: the days before it stay audited, its own day is not marked, and what that day took so far
// stays taken.
void audit_inventory();

}  // namespace tavernook
