#include "screens/pantry/expiry_field.h"

#include <QDate>

#include "core/program_state.h"
#include "inventory/item_form.h"
#include "screens/parts/date_popup.h"
#include "screens/parts/qt_dates.h"
#include "screens/parts/shown_text.h"
#include "ui_expiry_field.h"

namespace tavernook {

ExpiryField::ExpiryField(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ExpiryField>()),
      calendar_(new DatePopup(*this, {"month_box", "month_view"})) {
    ui_->setupUi(this);
    calendar_->set_heading(tr("Date until which it keeps"));
    connect(ui_->exp_date, &QPushButton::clicked, this,
            [this] { Q_EMIT command([this] { toggle(); }); });
    connect(calendar_, &DatePopup::picked, this,
            [this](const QDate& day) { Q_EMIT command([this, day] { take(day); }); });
}

ExpiryField::~ExpiryField() = default;

void ExpiryField::show_date(Date expiry) {
    const QString day = expiry == 0 ? QString() : shown_date(expiry, "MM/DD/YY");
    ui_->exp_date->setText(day.isEmpty() ? QStringLiteral("Exp Date..")
                                         : QStringLiteral("Exp ") + day);
}

void ExpiryField::show_new_item() {
    ui_->exp_date->setText(QStringLiteral("Exp Date"));
}

void ExpiryField::close_calendar() {
    if (calendar_->isVisible()) calendar_->hide();
}

QPushButton& ExpiryField::button() const {
    return *ui_->exp_date;
}

void ExpiryField::toggle() {
    if (calendar_->isVisible()) return calendar_->hide();
    calendar_->ask(*ui_->exp_date, ui_->exp_date->rect(), tr("Date until which it keeps"));
}

void ExpiryField::take(const QDate& picked_day) {
    const Date day = date_of(picked_day);
    const int days = storage_days_until(day);
    ui_->exp_date->setText(
        shown_text("Exp " + format_date(day, date_day_first != 0 ? "DD/MM/YY" : "MM/DD/YY")));
    Q_EMIT picked(days);
}

}  // namespace tavernook
