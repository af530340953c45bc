#include "screens/parts/sign_words.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyledItemDelegate>

#include "screens/parts/rows_model.h"

namespace tavernook {

namespace {

class SignWords : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const QString words = index.data(RowsModel::sign_words_role).toString();
        if (words.isEmpty()) return;
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QRect free = beside_text(cell);
        if (cell.fontMetrics.horizontalAdvance(words) > free.width()) return;
        const bool is_selected = (cell.state & QStyle::State_Selected) != 0;
        painter->save();
        painter->setFont(cell.font);
        painter->setPen(
            cell.palette.color(is_selected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(free, int(at_the_far_side(cell) | Qt::AlignVCenter), words);
        painter->restore();
    }

  private:
    static bool text_is_right(const QStyleOptionViewItem& cell) {
        return (cell.displayAlignment & Qt::AlignRight) != 0;
    }
    static Qt::Alignment at_the_far_side(const QStyleOptionViewItem& cell) {
        return text_is_right(cell) ? Qt::AlignLeft : Qt::AlignRight;
    }

    // What the cell's text leaves free of its place.
    static QRect beside_text(const QStyleOptionViewItem& cell) {
        const QStyle& style = *(cell.widget != nullptr ? cell.widget->style() : qApp->style());
        const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
        const QRect text = style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget)
                               .adjusted(margin, 0, -margin, 0);
        const int taken = cell.fontMetrics.horizontalAdvance(cell.text) + 3 * margin;
        return text_is_right(cell) ? text.adjusted(0, 0, -taken, 0) : text.adjusted(taken, 0, 0, 0);
    }
};

}  // namespace

void show_sign_words(QAbstractItemView& list) {
    list.setItemDelegate(new SignWords(&list));
}

}  // namespace tavernook
