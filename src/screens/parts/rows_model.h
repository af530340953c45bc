// The list that all flat lists of the program share: rows are numbers, columns are data.
//
// A row is one number that its owner gives a meaning to: the slot of an item, or several small
// numbers packed by `row_id`, as (item, recipe) of a recommendation. A column says how such a
// number reads as text and what it is sorted by. The owner gives the rows in their own order:
//
//     model_ = new RowsModel({{.title = tr("Unit"), .text = unit_name},
//                             {.title = tr("Grams"), .text = grams_text, .number = grams,
//                              .alignment = on_the_right}}, this);
//     list_->setModel(model_);
//     refill_in_place(*list_, *model_, live_units());     // rows_in_view.h
//
// A sort is done on top of the order that the rows have, so that rows which are equal keep it: by
// store, and then by category, is by category and within it by store. Column -1 goes back to the
// order of the owner. The sorts are done again, in their order, whenever rows come. What a column
// is sorted by is read once for each row (or each part, where the column names it), and texts
// become their places among all texts, as people write them, before anything is compared; so 50,000
// rows turn at once, without a proxy.
//
// What can go wrong: Qt asks for a cell while a row's record has already gone, or holds nonsense.
// The functions of the columns read by `row_or_none`; should one fail all the same, the cell is
// empty. No two rows of a list are the same number, and none is 0, which is no row everywhere.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QString>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "basics/values.h"

namespace tavernook {

enum class StockSign;  // stock_sign.h

using RowId = std::int64_t;
inline constexpr RowId no_row = 0;

// Several numbers as one row, and each of them back (0 is the first).
constexpr RowId row_id(i16 first, i16 second, i16 third = 0) {
    const auto bits = [](i16 number) { return RowId{static_cast<std::uint16_t>(number)}; };
    return bits(first) | bits(second) << 16 | bits(third) << 32;
}
constexpr i16 part_of(RowId row, int place) {
    return static_cast<i16>(static_cast<std::uint16_t>(row >> (16 * place)));
}

inline constexpr Qt::Alignment on_the_left = Qt::AlignLeft | Qt::AlignVCenter;
inline constexpr Qt::Alignment on_the_right = Qt::AlignRight | Qt::AlignVCenter;

// Everything but the title and the text may be left out.
struct RowsColumn {
    QString title = {};
    std::function<QString(RowId)> text = {};
    std::function<f64(RowId)> number = {};  // what it is sorted by; without it by its text
    Qt::Alignment alignment = on_the_left;
    std::function<QIcon(RowId)> icon = {};
    std::function<QString(RowId)> tip = {};
    std::function<QString(RowId)> description = {};  // for assistive technology
    QString title_tip = {};
    std::function<StockSign(RowId)> sign = {};  // its icon, unless there is another, and its colour
    int part = -1;  // of the row's number, which alone decides text and number; -1 = all of it
};

class RowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Role {
        key_role = Qt::UserRole,  // the row's key as text, see set_key
        row_role,                 // the row's number
        sign_words_role           // the description of a column with a sign
    };

    struct SortStep {
        int column = 0;
        Qt::SortOrder order = Qt::AscendingOrder;
    };

    RowsModel(std::vector<RowsColumn> columns, QObject* parent);

    // How a row's key reads, as "t12"; without it as the plain number.
    void set_key(std::function<QString(RowId)> key) { key_ = std::move(key); }

    // The plain text that a row offers when it is dragged; without it rows cannot be dragged.
    void set_drag_text(std::function<QString(RowId)> text) { drag_text_ = std::move(text); }

    // Which plain texts may be dropped on the list; without it none. What is dropped comes as a
    // signal.
    void set_drop_rule(std::function<bool(const QString&)> rule) { drop_rule_ = std::move(rule); }

    // In the owner's order; the sorts are done on them. False when the same rows stand in the same
    // order as before: then they are only read anew. Otherwise the same rows in another order keep
    // what is selected; other rows lose it, unless they come by `refill_in_place`.
    bool set_rows(std::vector<RowId> rows);

    // As shown.
    const std::vector<RowId>& rows() const { return rows_; }
    RowId row_at(int place) const;  // no_row outside the list
    int place_of(RowId row) const;  // -1 when it is not in the list
    int place_of_key(const QString& key) const;

    void sort(int column, Qt::SortOrder order) override;

    // The sorts since the order of the owner, the latest last.
    const std::vector<SortStep>& sort_steps() const { return steps_; }
    void set_sort_steps(std::vector<SortStep> steps);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    void dropped(const QString& text);

  private:
    std::vector<RowId> arranged(std::vector<RowId> rows) const;
    std::vector<RowId> sorted_by(const SortStep& step, const std::vector<RowId>& rows) const;
    void move_rows(std::vector<RowId> rows);
    QVariant cell(const RowsColumn& column, RowId row, int role) const;
    QString key_of(RowId row) const;

    std::vector<RowsColumn> columns_;
    std::function<QString(RowId)> key_;
    std::function<QString(RowId)> drag_text_;
    std::function<bool(const QString&)> drop_rule_;
    std::vector<RowId> given_;  // in the owner's order
    std::vector<RowId> rows_;   // as shown
    std::vector<SortStep> steps_;
};

}  // namespace tavernook
