#include "screens/aids/Calculator.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "ui_Calculator.h"

namespace tavernook {

namespace {

constexpr int digits_in_sight = 20;

QFont larger(QFont font, double times) {
    font.setPointSizeF(font.pointSizeF() * times);
    return font;
}

void dress(QLineEdit& display) {
    const QFont font = larger(display.font(), 1.5);
    display.setFont(font);
    const QFontMetrics metrics(font);
    const int frame = display.sizeHint().height() - metrics.height();
    const int digits = metrics.horizontalAdvance(QLatin1Char('0')) * digits_in_sight;
    display.setMinimumSize(digits + frame, display.sizeHint().height());
}

void dress(QPushButton& button) {
    button.setFont(larger(button.font(), 1.2));
    button.setMinimumHeight(button.fontMetrics().height() * 2);
}

}  // namespace

Calculator::Calculator(QWidget* parent) : Screen(parent), ui_(laid_out<Ui::Calculator>(*this)) {
    setWindowIcon(icon(QStringLiteral("calculator")));
    setFocusProxy(ui_->Readout);
    dress(*ui_->Readout);
    for (auto* button : findChildren<QPushButton*>()) {
        dress(*button);
        button->installEventFilter(this);
    }
    ui_->Readout->installEventFilter(this);
    connect_keys();
    show_readout();
}

Calculator::~Calculator() = default;

void Calculator::connect_keys() {
    for (char digit = '0'; digit <= '9'; ++digit) {
        auto* button = findChild<QPushButton*>(QStringLiteral("Number_") + QLatin1Char(digit));
        on_command(button, [this, digit] { tell(state_.Number(digit)); });
    }
    for (QPushButton* button : {ui_->Operator_plus, ui_->Operator_minus, ui_->Operator_times,
                                ui_->Operator_divide, ui_->Operator_equals}) {
        const char caption = button->text().front().toLatin1();
        on_command(button, [this, caption] { tell(state_.Operator(caption)); });
    }
    const auto on = [this](QPushButton* button, void (CalculatorState::*key)() noexcept) {
        on_command(button, [this, key] {
            (state_.*key)();
            show_readout();
        });
    };
    on(ui_->Decimal, &CalculatorState::Decimal);
    on(ui_->Percent, &CalculatorState::Percent);
    on(ui_->CancelEntry, &CalculatorState::CancelEntry);
    on(ui_->Cancel, &CalculatorState::Cancel);
}

// --- keys ----------------------------------------------------------------------------------------

// What a display can do with a key by itself, the calculator does otherwise. On some desktops
// Enter presses the button that has the focus: here it is "=" everywhere.
bool Calculator::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && take(*static_cast<QKeyEvent*>(event))) return true;
    return Screen::eventFilter(watched, event);
}

void Calculator::keyPressEvent(QKeyEvent* event) {
    if (!take(*event)) Screen::keyPressEvent(event);
}

bool Calculator::take(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Copy)) {
        copy();
    } else if (key.matches(QKeySequence::Paste)) {
        run([this] { paste(); });
    } else if (key.key() == Qt::Key_Escape && state_.is_reset()) {
        close_screen(*this);
    } else if (QPushButton* button = button_of(key)) {
        button->click();
    } else {
        return false;
    }
    return true;
}

QPushButton* Calculator::button_of(const QKeyEvent& key) const {
    const auto others = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (others != Qt::NoModifier) return nullptr;
    if (is_enter(key)) return ui_->Operator_equals;
    if (key.key() == Qt::Key_Escape) return ui_->Cancel;
    if (key.key() == Qt::Key_Delete) return ui_->CancelEntry;
    const QString sign = key.text()
                             .toUpper()
                             .replace(QLatin1Char('*'), QLatin1Char('X'))
                             .replace(QLatin1Char(','), QLatin1Char('.'));
    for (auto* button : findChildren<QPushButton*>()) {
        if (sign.size() == 1 && button->text() == sign && button != ui_->Cancel) return button;
    }
    return nullptr;
}

void Calculator::copy() {
    const QString selected = ui_->Readout->selectedText();
    QApplication::clipboard()->setText(selected.isEmpty() ? ui_->Readout->text() : selected);
}

void Calculator::paste() {
    const QString text = QApplication::clipboard()->text().trimmed();
    if (!state_.type_number(typed_text(text))) say(tr("What was copied is no number."));
    show_readout();
}

// --- what is shown -------------------------------------------------------------------------------

void Calculator::tell(CalculatorNews news) {
    show_readout();
    if (news == CalculatorNews::too_large) say(tr("The result is too large."));
    if (news == CalculatorNews::no_room) say(tr("The display is full."));
    if (news == CalculatorNews::divided_by_zero) {
        boxes().warning("Can't divide by zero", "Calculator");
    }
}

// Of a number that does not fit, its end is in sight while it is typed, and else its beginning.
void Calculator::show_readout() {
    const QString shown = shown_text(state_.Readout);
    if (ui_->Readout->text() != shown) {
        ui_->Readout->setText(shown);
        QAccessibleEvent event(ui_->Readout, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
    if (state_.LastInput != "NUMS") ui_->Readout->home(false);
    const bool fits = shown.size() <= digits_in_sight;
    ui_->Readout->setToolTip(fits ? QString() : shown);
}

}  // namespace tavernook
