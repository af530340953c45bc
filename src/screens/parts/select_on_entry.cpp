#include "screens/parts/select_on_entry.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <functional>
#include <utility>

namespace tavernook {

namespace {

class EntrySelector : public QObject {
  public:
    // The focus goes to one widget, and the clicks to the part of it that holds the text.
    EntrySelector(QWidget& box, QWidget& text, std::function<bool()> has_selection,
                  std::function<void()> select_all)
        : QObject(&box),
          box_(box),
          text_(text),
          has_selection_(std::move(has_selection)),
          select_all_(std::move(select_all)) {
        box_.installEventFilter(this);
        if (&text_ != &box_) text_.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &box_ && event->type() == QEvent::FocusIn) {
            enter(static_cast<QFocusEvent*>(event)->reason());
        } else if (watched == &text_ && event->type() == QEvent::MouseButtonRelease) {
            if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) end_click();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void enter(Qt::FocusReason reason) {
        by_click_ = reason == Qt::MouseFocusReason;
        const bool comes_back =
            reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
        if (!by_click_ && !comes_back) select_all_();
    }

    // Later: what the mouse has selected becomes the selection of the desktop, and this is none.
    void end_click() {
        if (!std::exchange(by_click_, false)) return;
        const auto select = [this] {
            if (!has_selection_()) select_all_();
        };
        QMetaObject::invokeMethod(this, select, Qt::QueuedConnection);
    }

    QWidget& box_;
    QWidget& text_;
    std::function<bool()> has_selection_;
    std::function<void()> select_all_;
    bool by_click_ = false;
};

void select_line(QWidget& box, QLineEdit& line) {
    new EntrySelector(
        box, line, [&line] { return line.hasSelectedText(); }, [&line] { line.selectAll(); });
}

}  // namespace

void select_on_entry(QLineEdit& box) {
    select_line(box, box);
}

void select_on_entry(QComboBox& box) {
    select_line(box, *box.lineEdit());
}

void select_on_entry(QPlainTextEdit& box) {
    new EntrySelector(
        box, *box.viewport(), [&box] { return box.textCursor().hasSelection(); },
        [&box] { box.selectAll(); });
}

}  // namespace tavernook
