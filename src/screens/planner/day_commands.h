// What is done to the plan of the day shown. Each command says in the status bar what it has done,
// or why it has done nothing. They run inside a command of the planner or behind its port, which
// trap what the routines throw.
//
// Only live recipes and items are planned, and nothing on an audited day. Both may change while a
// box stands open, so whatever a box was about is looked up again behind it.
#pragma once

#include <QDate>
#include <QString>
#include <string>

#include "basics/values.h"

namespace tavernook {

enum class Planned { recipe, item };

// That it has been deleted.
void say_gone(Planned what);

// False, and says why, on an audited day and where no day is free.
bool may_plan();

// The same for a dragged row over a date; without a word for what is no live recipe or item.
bool may_drop(const QDate& date, const QString& text);

bool plan_recipe(i16 recipe, f64 quantity);  // false: not planned
void plan_item(i16 item, f64 servings);

// One serving of what the code or the dragged text names.
void plan_code(const std::string& code);
void plan_dragged(const QString& text);

// The row of that key of the recommendations. Asks how much; what reads as 0 is planned where that
// is wanted, too. A cancelled box plans nothing.
void plan_recommended(const std::string& key, bool zero_too);

// The row of that key of the day list. The quantity shown stands in the box that asks; one below 0
// is refused.
void ask_quantity(const std::string& key, const QString& shown);

// False without a row or on an audited day.
bool remove_row(const std::string& key);

// Settles an audited day with the stock and opens it.
void edit_day_shown();

void copy_day_shown();
void cut_day_shown();
void paste_here();
void delete_here();

// The Delete key: an audited day only. A plain one goes by the menu of the date, as the key may
// come once too often behind a code that was mistyped.
void delete_by_key();

}  // namespace tavernook
