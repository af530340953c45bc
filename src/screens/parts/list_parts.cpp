#include "screens/parts/list_parts.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "screens/parts/table_copy.h"

namespace tavernook {

namespace {

class RoomyRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        const int line = option.fontMetrics.height();
        return {size.width(), std::max(size.height(), line + line / 2)};
    }

  protected:
    // The frame of a check box, which styles make of the window's colour, is seen on any ground.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool is_dark = option->palette.color(QPalette::Base).lightness() < 128;
        const bool has_check = option->features.testFlag(QStyleOptionViewItem::HasCheckIndicator);
        if (has_check && is_dark) {
            option->palette.setColor(QPalette::Window, option->palette.color(QPalette::Text));
        }
    }
};

QLabel* new_hint(QAbstractItemView& view, const QString& name) {
    auto* label = new QLabel(view.viewport());
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::Text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* layout = new QVBoxLayout(view.viewport());
    layout->addWidget(label);
    return label;
}

}  // namespace

void space_rows(QAbstractItemView& view) {
    view.setItemDelegate(new RoomyRows(&view));
}

void dress_list(QTreeView& view) {
    space_rows(view);
    view.setRootIsDecorated(false);
    view.setItemsExpandable(false);
    view.setUniformRowHeights(true);
    view.setAllColumnsShowFocus(true);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setTabKeyNavigation(false);
    view.header()->setSortIndicatorClearable(true);
    view.header()->setSortIndicator(-1, Qt::AscendingOrder);
    view.header()->setStretchLastSection(false);
    view.setSortingEnabled(true);
    copy_rows_by_keys(view);
}

void hint_when_empty(QAbstractItemView& view, const QString& hint) {
    const QString name = view.objectName() + QLatin1String("_hint");
    auto* label = view.viewport()->findChild<QLabel*>(name);
    const bool is_new = label == nullptr;
    if (is_new) label = new_hint(view, name);
    label->setText(hint);
    const QAbstractItemModel* model = view.model();
    const auto follow = [&view, model, label] {
        const bool empty = model->rowCount() == 0;
        label->setVisible(empty);
        view.setAccessibleDescription(empty ? label->text() : QString());
    };
    follow();
    if (!is_new) return;
    QObject::connect(model, &QAbstractItemModel::rowsInserted, label, follow);
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, label, follow);
    QObject::connect(model, &QAbstractItemModel::modelReset, label, follow);
}

void on_keys(QWidget& widget, const QKeySequence& keys, std::function<void()> command) {
    auto* shortcut = new QShortcut(keys, &widget);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    const bool ends_entry = keys[0].keyboardModifiers() == Qt::ControlModifier &&
                            (keys[0].key() == Qt::Key_Return || keys[0].key() == Qt::Key_Enter);
    const auto serve = [command = std::move(command), ends_entry] {
        QWidget* list_of_a_box = QApplication::activePopupWidget();
        if (list_of_a_box != nullptr) list_of_a_box->close();
        if (list_of_a_box == nullptr || ends_entry) command();
    };
    QObject::connect(shortcut, &QShortcut::activated, &widget, serve);
}

bool is_enter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

void mark_row(QAbstractItemView& view, const QModelIndex& row) {
    if (row.isValid()) {
        view.setCurrentIndex(row);
        view.scrollTo(row);
    } else {
        view.selectionModel()->clear();
    }
}

void on_command(QWidget& screen, const char* name, std::function<void()> command) {
    const QLatin1String wanted(name);
    if (auto* action = screen.findChild<QAction*>(wanted)) {
        QObject::connect(action, &QAction::triggered, &screen, std::move(command));
    } else {
        auto* button = screen.findChild<QAbstractButton*>(wanted);
        QObject::connect(button, &QAbstractButton::clicked, &screen, std::move(command));
    }
}

void enter_presses_buttons(QWidget& screen) {
    for (QPushButton* button : screen.findChildren<QPushButton*>()) button->setAutoDefault(true);
}

void close_screen(QWidget& screen) {
    if (auto* child = qobject_cast<QMdiSubWindow*>(screen.parentWidget())) {
        child->close();
    } else {
        screen.close();
    }
}

int letters_wide(const QWidget& widget, int letters) {
    return widget.fontMetrics().averageCharWidth() * letters;
}

}  // namespace tavernook
