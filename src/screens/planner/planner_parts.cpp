#include "screens/planner/planner_parts.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QTreeView>
#include <algorithm>

#include "screens/parts/list_parts.h"

namespace tavernook {

namespace {

class FirstRowMarker : public QObject {
  public:
    explicit FirstRowMarker(QTreeView& list) : QObject(&list), list_(list) {
        list.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool entered = event->type() == QEvent::FocusIn &&
                             static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason;
        if (entered && !list_.selectionModel()->hasSelection()) {
            list_.setCurrentIndex(list_.model()->index(0, 0));
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    QTreeView& list_;
};

class ColumnRoom : public QObject {
  public:
    ColumnRoom(QTreeView& list, std::vector<std::pair<int, int>> letters)
        : QObject(&list), list_(list), letters_(std::move(letters)) {
        keep_titles_whole();
        for (const auto& [column, count] : letters_) {
            list.header()->resizeSection(column, letters_wide(list, count));
        }
        list.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) keep_titles_whole();
        if (event->type() == QEvent::FontChange) follow_font();
        return QObject::eventFilter(watched, event);
    }

  private:
    // The widths that are remembered may be of a time with smaller text.
    void keep_titles_whole() {
        const int title = list_.fontMetrics().horizontalAdvance(QStringLiteral("Quantity"));
        list_.header()->setMinimumSectionSize(title + letters_wide(list_, 2));
    }

    // Each column keeps its room in letters, also back and forth.
    void follow_font() {
        const double grown = letters_wide(list_, many) / measured_;
        measured_ = letters_wide(list_, many);
        std::vector<int> widths;
        QHeaderView& header = *list_.header();
        for (const auto& [column, count] : letters_) {
            widths.push_back(qRound(header.sectionSize(column) * grown));
        }
        keep_titles_whole();
        for (std::size_t i = 0; i < widths.size(); ++i) {
            header.resizeSection(letters_[i].first, widths[i]);
        }
    }

    static constexpr int many = 100;

    QTreeView& list_;
    std::vector<std::pair<int, int>> letters_;
    double measured_ = letters_wide(list_, many);
};

}  // namespace

void give_columns_room(QTreeView& list, const std::vector<std::pair<int, int>>& letters) {
    new ColumnRoom(list, letters);
}

void mark_first_row_when_entered(QTreeView& list) {
    new FirstRowMarker(list);
}

}  // namespace tavernook
