#include "screens/frame/main_status_bar.h"

#include <QAccessible>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QStatusBar>
#include <QStyle>

#include "platform/main_window.h"
#include "screens/parts/label_access.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

constexpr const char* longest_activity = "Opening Project...";

QString line_name(std::size_t place) {
    return QStringLiteral("status_line_%1").arg(place + 1);
}

// However long a sentence is, the window stays as wide as it was: what does not fit ends in "...",
// and the tip has all of it.
class Sentence : public QLabel {
  public:
    explicit Sentence(QWidget* parent) : QLabel(parent) {
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), shown, foregroundRole());
    }
};

}  // namespace

MainStatusBar::MainStatusBar(QStatusBar& bar) : bar_(bar) {
    for (std::size_t place = 0; place < panels_.size(); ++place) add_panel(place);
    panels_[message_panel - 1]->setAccessibleName(QObject::tr("Messages"));
    panels_[message_panel - 1]->setProperty("announces", true);
    panels_[audit_time_panel - 1]->setAccessibleName(QObject::tr("Daily audit"));
    QLabel& activity = *panels_[activity_panel - 1];
    activity.setAccessibleName(QObject::tr("Present activity"));
    activity.setMinimumWidth(
        activity.fontMetrics().horizontalAdvance(QLatin1String(longest_activity)));
}

void MainStatusBar::add_panel(std::size_t place) {
    QLabel* panel = place == 0 ? new Sentence(&bar_) : new QLabel(&bar_);
    panel->setObjectName(QStringLiteral("status_panel_%1").arg(place + 1));
    panel->setTextFormat(Qt::PlainText);
    panels_[place] = panel;
    if (place == 0) return bar_.addWidget(panel, 1);
    auto* line = new QFrame(&bar_);
    line->setObjectName(line_name(place));
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    line->hide();
    bar_.addPermanentWidget(line);
    bar_.addPermanentWidget(panel);
}

void MainStatusBar::set_text(int panel, std::string_view text) {
    if (panel < 1 || panel > static_cast<int>(panels_.size())) return;
    const std::size_t place = static_cast<std::size_t>(panel) - 1;
    QLabel& label = *panels_[place];
    const QString shown = shown_text(text);
    // The tip of a button that the mouse rests on would hide the answer.
    if (panel == message_panel && !shown.isEmpty()) bar_.clearMessage();
    if (label.text() == shown) return;
    label.setText(shown);
    if (panel == message_panel) label.setToolTip(shown);
    if (panel == message_panel && !shown.isEmpty()) {
        announce(label);
    } else {
        QAccessibleEvent changed(&label, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
    }
    // An empty panel needs no line before it.
    if (auto* line = bar_.findChild<QFrame*>(line_name(place))) line->setVisible(!shown.isEmpty());
    if (!bar_.window()->isVisible()) return;
    bar_.layout()->activate();
    bar_.repaint();
}

}  // namespace tavernook
