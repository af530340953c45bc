// The 16 lots of one item as a list shows them, in the order of their places. They are read whole
// and then shown, so that a lot that cannot be told leaves the list as it was.
#pragma once

#include <QIcon>
#include <QString>
#include <vector>

#include "core/records.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/stock_sign.h"

namespace tavernook {

class LotRows {
  public:
    enum Column { name, created, quantity, expires, note };

    LotRows();

    // Item 0 has none. A Fault leaves the rows as they were.
    void read(i16 item);

    // What the list is given.
    std::vector<RowId> rows() const;
    static RowId row_of(i16 place) { return place + 1; }
    static i16 place_of(RowId row) { return static_cast<i16>(row - 1); }  // -1 for no row

    // Over these rows, which outlive the list.
    std::vector<RowsColumn> columns() const;

  private:
    struct Line {
        QString name, created, quantity, expires, note;
        Date created_at, expires_at;
        f64 held;
        bool is_current, is_expired;
    };
    static Line read_line(i16 item, i16 place, const QString& unit);
    const Line& line(RowId row) const { return lines_.at(static_cast<std::size_t>(row - 1)); }
    QIcon mark(RowId row) const { return line(row).is_current ? current_mark_ : ordinary_mark_; }
    StockSign sign(RowId row) const {
        return line(row).is_expired ? StockSign::past_date : StockSign::none;
    }

    std::vector<Line> lines_;
    QIcon ordinary_mark_;
    QIcon current_mark_;
};

}  // namespace tavernook
