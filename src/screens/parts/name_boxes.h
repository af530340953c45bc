// Boxes that offer the names of a table and take any text besides.
#pragma once

#include <QComboBox>
#include <QStringList>
#include <QStringListModel>
#include <vector>

#include "basics/values.h"
#include "core/rows.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

// Live and not blank, in the order of the table.
template <typename Rows>
QStringList live_names(const Rows& table) {
    QStringList names;
    for (const auto& record : table) {
        if (record.in_use == 1 && !record.name.blank()) {
            names.append(shown_text(record.name.trimmed()));
        }
    }
    return names;
}

// Empty for what is no row.
template <typename Rows>
QString name_in(const Rows& table, i16 row) {
    return row > 0 ? shown_text(row_or_none(table, row).name.trimmed()) : QString();
}

void show_name(QComboBox& box, const QString& name);

// While one types, the names of the box's list in which that stands are offered below it, capitals
// or not. What was typed is never altered: only a name that is chosen there takes its place. Enter
// without a choice is Enter in the box, and Esc brings back what was typed.
void offer_names(QComboBox& box);

// A new list empties the boxes over it, which therefore get their texts back.
void change_list(QStringListModel& list, const QStringList& names,
                 const std::vector<QComboBox*>& over);

}  // namespace tavernook
