#include "screens/parts/quantity_box.h"

#include <QAction>

#include "basics/number_text.h"
#include "inventory/item_form.h"
#include "screens/parts/icons.h"
#include "screens/parts/select_on_entry.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

QuantityBox::QuantityBox(QWidget* parent)
    : QLineEdit(parent),
      warning_(new QAction(icon(QStringLiteral("warning")), tr("This is not a number."), this)) {
    setAlignment(Qt::AlignRight);
    select_on_entry(*this);
    connect(this, &QLineEdit::textChanged, this, &QuantityBox::mark);
}

void QuantityBox::set_value(f64 value, const char* mask) {
    show_untouched(value, format_number(value, mask));
}

void QuantityBox::set_number(f64 value) {
    show_untouched(value, number_text(value));
}

void QuantityBox::show_untouched(f64 value, const std::string& text) {
    value_ = value;
    shown_ = shown_text(text);
    if (this->text() != shown_) {
        setText(shown_);
        setCursorPosition(0);
    }
    mark();
}

void QuantityBox::set_blank() {
    value_ = 0;
    shown_.clear();
    clear();
}

f64 QuantityBox::value() const {
    return touched() ? leading_number(with_decimal_point(typed_text(text()))) : value_;
}

std::string QuantityBox::value_text() const {
    return touched() ? with_decimal_point(typed_text(text())) : number_text(value_);
}

bool QuantityBox::readable() const {
    return reads_as_number(typed_text(text()));
}

// By an icon and words, for every eye and ear.
void QuantityBox::mark() {
    const bool fine = readable();
    const bool marked = actions().contains(warning_);
    if (marked) setToolTip(purpose_);
    if (marked && fine) removeAction(warning_);
    if (!marked && !fine) addAction(warning_, QLineEdit::LeadingPosition);
    QString trouble;
    if (!fine) {
        purpose_ = toolTip();
        const QString counted = shown_text(number_text(value()));
        trouble = tr("This cannot be read as one number. It would count as %1.").arg(counted);
        setToolTip(trouble);
    }
    setAccessibleDescription(trouble);
}

QSize QuantityBox::size_for(int letters) const {
    const int wide = fontMetrics().horizontalAdvance(QLatin1Char('0')) * letters;
    const QSize usual = QLineEdit::sizeHint();
    const QSize usual_text(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 17, 0);
    return {usual.width() - usual_text.width() + wide, usual.height()};
}

QSize QuantityBox::sizeHint() const {
    return size_for(9);
}
QSize QuantityBox::minimumSizeHint() const {
    return size_for(6);
}

}  // namespace tavernook
