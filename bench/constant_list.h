// The yardstick for lists: a plain view of the same size over rows that all say the same and hold
// nothing.
#pragma once

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QScrollBar>
#include <QStringList>
#include <QTreeView>
#include <utility>

#include "painting.h"

namespace tavernook {

class ConstantRows : public QAbstractTableModel {
  public:
    ConstantRows(int rows, QStringList cells) : rows_(rows), cells_(std::move(cells)) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : rows_;
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(cells_.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? cells_[index.column()] : QVariant();
    }
    void fill() {
        beginResetModel();
        endResetModel();
    }

  private:
    int rows_;
    QStringList cells_;
};

class ConstantList {
  public:
    // Of the size of `other`, with rows like its first one.
    ConstantList(const QTreeView& other, int rows) : model_(rows, first_row(*other.model())) {
        view_.setModel(&model_);
        view_.setUniformRowHeights(true);
        view_.setAlternatingRowColors(true);
        view_.setRootIsDecorated(false);
        view_.resize(other.size());
        view_.show();
        paint_changes(view_);
    }

    // Filled anew and painted.
    void fill() {
        model_.fill();
        paint_changes(view_);
    }
    // The next page, painted; behind the last one the first.
    void turn_page() { turn_page_of(view_); }

    static void turn_page_of(QTreeView& view) {
        QScrollBar& bar = *view.verticalScrollBar();
        const bool last = bar.value() == bar.maximum();
        bar.setValue(last ? bar.minimum() : bar.value() + bar.pageStep());
        paint_changes(view);
    }

  private:
    static QStringList first_row(const QAbstractItemModel& model) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            cells << model.index(0, column).data().toString();
        }
        return cells;
    }

    ConstantRows model_;
    QTreeView view_;
};

}  // namespace tavernook
