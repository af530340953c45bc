#include "screens/parts/checked_line.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "screens/parts/house_colours.h"

namespace tavernook {

CheckedLine::CheckedLine(QAbstractButton& button) : QWidget(&button), button_(button) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    button.installEventFilter(this);
    connect(&button, &QAbstractButton::toggled, this, &QWidget::setVisible);
    setVisible(button.isChecked());
    take_place();
}

void CheckedLine::take_place() {
    const int thick = std::max(2, button_.fontMetrics().height() / 6);
    const int inset = 2 * thick;
    setGeometry(inset, button_.height() - thick, button_.width() - 2 * inset, thick);
}

void CheckedLine::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), house_colour(HouseColour::accent, palette()));
}

bool CheckedLine::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::Resize || type == QEvent::FontChange) take_place();
    return QWidget::eventFilter(watched, event);
}

}  // namespace tavernook
