#include "screens/parts/plan_names.h"

#include <QLocale>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

template <typename Rows>
QString name_of(const Rows& table, i16 row) {
    return shown_text(row_or_none(table, row).name.trimmed());
}

}  // namespace

QString recipe_name(i16 recipe) {
    return name_of(meals, recipe);
}

QString item_name(i16 item) {
    return name_of(items, item);
}

QString recipe_unit(i16 recipe) {
    return name_of(units, row_or_none(meals, recipe).serving_size_units);
}

QString serving_unit(i16 item) {
    return name_of(units, row_or_none(items, item).serving_size_units);
}

QString spoken_date(const QDate& date) {
    const bool day_first = date_day_first == 1;
    return QLocale().toString(
        date, day_first ? QStringLiteral("dddd, d MMMM") : QStringLiteral("dddd, MMMM d"));
}

}  // namespace tavernook
