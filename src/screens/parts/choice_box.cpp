#include "screens/parts/choice_box.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <utility>

namespace tavernook {

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::textActivated, this, [this](const QString& text) {
        Q_EMIT chosen(text, std::exchange(from_popup_, false));
    });
}

void ChoiceBox::fill() {
    if (!choices_) return;
    const QSignalBlocker quiet(this);
    const QString text = currentText();
    addItems(std::exchange(choices_, nullptr)());
    setCurrentIndex(findText(text));
    setEditText(text);
}

void ChoiceBox::show_choice(const QString& text) {
    shown_ = text;
    if (hasFocus() && lineEdit()->isModified()) return;
    const QSignalBlocker quiet(this);
    setCurrentIndex(findText(text, Qt::MatchFixedString));
    setEditText(text);
    lineEdit()->setCursorPosition(0);
}

void ChoiceBox::showPopup() {
    fill();
    from_popup_ = true;
    QComboBox::showPopup();
}

void ChoiceBox::focusInEvent(QFocusEvent* event) {
    fill();
    QComboBox::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        lineEdit()->selectAll();
    }
}

void ChoiceBox::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason) return;
    lineEdit()->setModified(false);
    Q_EMIT left(false);
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    from_popup_ = false;
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            lineEdit()->setModified(false);
            Q_EMIT chosen(currentText(), true);
            return;
        case Qt::Key_Escape:
            lineEdit()->setModified(false);
            Q_EMIT left(true);
            return;
        default:
            QComboBox::keyPressEvent(event);
    }
}

// A turn that is meant for the page must not change the text's look.
void ChoiceBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) return QComboBox::wheelEvent(event);
    event->ignore();
}

}  // namespace tavernook
