#include "screens/parts/toolbar_parts.h"

#include <QAction>
#include <QResizeEvent>
#include <QToolBar>
#include <QToolButton>
#include <utility>

#include "screens/parts/icons.h"

namespace tavernook {

namespace {

// Beside the icons, where the toolbar is one line high, as long as all of them have room so. They
// come and go with their actions; the toolbar hears of that behind this.
class CaptionPlace : public QObject {
  public:
    explicit CaptionPlace(QToolBar& bar) : QObject(&bar), bar_(bar) {
        bar.installEventFilter(this);
        fit();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FontChange) fit();
        if (event->type() == QEvent::ActionChanged) fit_later();
        if (event->type() == QEvent::Resize) {
            const auto& resize = *static_cast<QResizeEvent*>(event);
            if (resize.size().width() != resize.oldSize().width()) fit();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void fit_later() {
        if (std::exchange(will_fit_, true)) return;
        QMetaObject::invokeMethod(
            this, [this] { fit(); }, Qt::QueuedConnection);
    }
    void fit() {
        will_fit_ = false;
        bar_.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        if (bar_.sizeHint().width() <= bar_.width()) return;
        bar_.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    }

    QToolBar& bar_;
    bool will_fit_ = false;
};

}  // namespace

void fill_toolbar(QWidget& screen, QToolBar& bar,
                  const std::vector<std::pair<int, const char*>>& icons) {
    bar.setAccessibleName(bar.windowTitle());
    for (const auto& [position, name] : icons) {
        if (name == nullptr) {
            bar.addSeparator();
            continue;
        }
        auto* action =
            screen.findChild<QAction*>(QStringLiteral("%1_%2").arg(bar.objectName()).arg(position));
        action->setIcon(icon(QLatin1String(name)));
        bar.addAction(action);
        auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
        button->setObjectName(action->objectName() + QLatin1String("_button"));
        // With its mnemonic, which the button drops whenever the action changes.
        const auto show_text = [button, action] { button->setText(action->text()); };
        show_text();
        QObject::connect(action, &QAction::changed, button, show_text);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(action->iconText());
    }
}

void show_captions(QToolBar& bar) {
    const int line = bar.fontMetrics().height();
    bar.setIconSize(QSize(line * 3 / 2, line * 3 / 2));
    new CaptionPlace(bar);
}

void enlarge_command(QToolBar& bar, QAction& action) {
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(&action));
    button->setAutoRaise(false);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QFont font = button->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    button->setFont(font);
}

}  // namespace tavernook
