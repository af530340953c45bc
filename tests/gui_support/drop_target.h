// A widget that takes everything that is dragged over it, dropped or not.
#pragma once

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace tavernook {

class DropTarget : public QWidget {
  public:
    DropTarget() { setAcceptDrops(true); }

    // Whether anything of a whole drop, from its entering on, comes here.
    bool takes_drop() {
        taken_ = 0;
        QMimeData data;
        data.setText(QStringLiteral("soup"));
        QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, {});
        QDragMoveEvent move(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, {});
        QDropEvent drop(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, {});
        bool is_accepted = false;
        for (QDropEvent* event :
             {static_cast<QDropEvent*>(&enter), static_cast<QDropEvent*>(&move), &drop}) {
            QCoreApplication::sendEvent(this, event);
            is_accepted |= event->isAccepted();
        }
        return taken_ > 0 || is_accepted;
    }

  protected:
    bool event(QEvent* event) override {
        const bool is_drop = event->type() == QEvent::DragEnter ||
                             event->type() == QEvent::DragMove || event->type() == QEvent::Drop;
        if (!is_drop) return QWidget::event(event);
        ++taken_;
        event->accept();
        return true;
    }

  private:
    int taken_ = 0;
};

}  // namespace tavernook
