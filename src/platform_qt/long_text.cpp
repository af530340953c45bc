#include "platform_qt/long_text.h"

#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace tavernook {

namespace {

constexpr qsizetype letters_to_measure = 3000;  // what is longer needs no measuring
constexpr int label_width = 400;                // of a label in a box of the usual size
constexpr int comfortable_letters = 60;
constexpr int comfortable_lines = 20;

QSize screen_size(const QWidget& box) {
    return box.screen()->availableGeometry().size();
}

QSize size_of(const QString& text, const QWidget& box, int width, Qt::TextFlag wrapping) {
    constexpr int any_height = 1'000'000;
    return box.fontMetrics().boundingRect(0, 0, width, any_height, wrapping, text).size();
}

// The rest of the screen is for what else stands in a box: icon, field, buttons and frame. Not
// higher than a short text needs, which came here for a word that cannot be wrapped.
QSize comfortable_size(const QString& text, const QWidget& box) {
    const QSize screen = screen_size(box);
    const QSize room(screen.width() * 2 / 5, screen.height() / 2);
    const int line = box.fontMetrics().lineSpacing();
    const int letter = box.fontMetrics().averageCharWidth();
    const int width = std::min(comfortable_letters * letter, room.width());
    const int height = std::min(comfortable_lines * line, room.height());
    if (text.size() > letters_to_measure) return {width, height};
    const QSize needed = size_of(text, box, width - 2 * line, Qt::TextWrapAnywhere);
    return {width, std::min(height, needed.height() + 2 * line)};
}

}  // namespace

bool LongText::is_needed(const QString& text, const QWidget& box) {
    if (text.size() > letters_to_measure) return true;
    const QSize half = screen_size(box) / 2;
    const QSize needed = size_of(text, box, label_width, Qt::TextWordWrap);
    return needed.width() > half.width() || needed.height() > half.height();
}

LongText::LongText(const QString& text, QWidget& box) : QPlainTextEdit(text, &box) {
    setObjectName(QStringLiteral("long_text"));
    setAccessibleName(box.windowTitle());
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setMinimumSize(comfortable_size(text, box));
    box.installEventFilter(this);
}

bool LongText::eventFilter(QObject* watched, QEvent* event) {
    if (watched != window() || event->type() != QEvent::KeyPress) {
        return QPlainTextEdit::eventFilter(watched, event);
    }
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_PageDown:
            verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
            return true;
        case Qt::Key_PageUp:
            verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
            return true;
        default:
            return QPlainTextEdit::eventFilter(watched, event);
    }
}

}  // namespace tavernook
