#include "screens/pantry/lot_rows.h"

#include <QObject>
#include <QStringList>
#include <utility>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/shelf_life.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/qt_dates.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

QString day_of_lot(Date date) {
    return date == 0 ? QStringLiteral("-") : shown_date(date, "MM/DD/YY");
}

}  // namespace

LotRows::LotRows()
    : ordinary_mark_(icon(QStringLiteral("lot"))),
      current_mark_(icon(QStringLiteral("lot_current"))) {}

LotRows::Line LotRows::read_line(i16 item, i16 place, const QString& unit) {
    const LotRecord& record = lots[item];
    const auto at = static_cast<std::size_t>(place);
    Line line{};
    line.is_current = record.current_lot == place;
    line.is_expired = lot_has_expired(items[item], record, at, platform_clock().now());
    QStringList notes;
    if (line.is_current) notes.append(QObject::tr("Current lot"));
    if (line.is_expired) notes.append(QObject::tr("Expired"));
    const QString amount = shown_text(number_text(record.lot_quantity[at]));
    line.name = shown_text(record.lot_name[at].right_trimmed());
    line.created = day_of_lot(record.creation_date[at]);
    line.quantity = unit.isEmpty() ? amount : amount + QLatin1Char(' ') + unit;
    line.expires = day_of_lot(record.expiration_date[at]);
    line.note = notes.join(QLatin1String(", "));
    line.created_at = record.creation_date[at];
    line.expires_at = record.expiration_date[at];
    line.held = record.lot_quantity[at];
    return line;
}

void LotRows::read(i16 item) {
    std::vector<Line> lines;
    if (item != 0) {
        const UnitRecord& unit = row_or_none(units, items[item].qty_units);
        const QString unit_name = shown_text(unit.name.right_trimmed());
        for (i16 place = 0; place < lot_places; ++place) {
            lines.push_back(read_line(item, place, unit_name));
        }
    }
    lines_ = std::move(lines);
}

std::vector<RowId> LotRows::rows() const {
    std::vector<RowId> rows;
    for (i16 place = 0; static_cast<std::size_t>(place) < lines_.size(); ++place) {
        rows.push_back(row_of(place));
    }
    return rows;
}

std::vector<RowsColumn> LotRows::columns() const {
    return {{.title = QObject::tr("Lot"),
             .text = [this](RowId row) { return line(row).name; },
             .icon = [this](RowId row) { return mark(row); }},
            {.title = QObject::tr("Created"),
             .text = [this](RowId row) { return line(row).created; },
             .number = [this](RowId row) { return line(row).created_at; },
             .alignment = Qt::AlignCenter},
            {.title = QObject::tr("Quantity"),
             .text = [this](RowId row) { return line(row).quantity; },
             .number = [this](RowId row) { return line(row).held; },
             .alignment = on_the_right},
            {.title = QObject::tr("Expires"),
             .text = [this](RowId row) { return line(row).expires; },
             .number = [this](RowId row) { return line(row).expires_at; },
             .alignment = Qt::AlignCenter},
            {.title = QObject::tr("Note"),
             .text = [this](RowId row) { return line(row).note; },
             .sign = [this](RowId row) { return sign(row); }}};
}

}  // namespace tavernook
