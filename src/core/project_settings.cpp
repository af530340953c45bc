#include "core/project_settings.h"

#include <algorithm>
#include <limits>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr i16 half_day = 12;

template <typename Stored, typename Value>
bool stored(Stored& setting, const Value& value) {
    const Stored before = setting;
    setting = value;
    return !(setting == before);
}

}  // namespace

ShownAuditTime shown_audit_time() noexcept {
    ShownAuditTime shown;
    shown.minute = audit_minute;
    shown.afternoon = audit_hour == 0 || audit_hour >= half_day;
    if (audit_hour == 0) {
        shown.hour = 11;
    } else if (audit_hour > half_day && audit_hour <= 2 * half_day) {
        shown.hour = static_cast<i16>(audit_hour - half_day);
    } else if (audit_hour > 0 && audit_hour < half_day) {
        shown.hour = audit_hour;
    }
    return shown;
}

i16 stored_audit_hour(i16 shown_hour, bool afternoon) noexcept {
    const int hour = shown_hour + (afternoon ? half_day : 0);
    return static_cast<i16>(std::min<int>(hour, std::numeric_limits<i16>::max()));
}

void show_audit_time() noexcept {
    std::string time = "-:-";
    if (audit_hour >= 1 && audit_hour <= 24) {
        const bool morning = audit_hour <= 12;
        time = std::to_string(morning ? audit_hour : audit_hour - 12) + ":" +
               format_number(audit_minute, "00") + (morning ? " AM" : " PM");
    }
    main_window().set_status(audit_time_panel, "Audit Time: " + time);
}

SetupTexts present_setup() noexcept {
    SetupTexts texts;
    texts.audit_hour = audit_hour;
    texts.audit_minute = audit_minute;
    texts.audit_days_ahead = number_text(audit_days_ahead);
    texts.expiration_warning_days = number_text(expiration_warning_days);
    texts.sales_tax = number_text(sales_tax);
    texts.currency_symbol = currency_symbol;
    texts.font_size = font_size;
    texts.ftp_server = ftp_server.right_trimmed();
    texts.ftp_account = ftp_account.right_trimmed();
    texts.ftp_password = ftp_password.right_trimmed();
    texts.ftp_directory = ftp_directory.right_trimmed();
    return texts;
}

void accept_setup(const SetupTexts& texts) {
    const i16 days_ahead = round_to_i16(leading_number(texts.audit_days_ahead));
    const i16 warning_days = round_to_i16(leading_number(texts.expiration_warning_days));
    bool changed = stored(audit_hour, texts.audit_hour);
    changed |= stored(audit_minute, texts.audit_minute);
    changed |= stored(audit_days_ahead, days_ahead);
    changed |= stored(expiration_warning_days, warning_days);
    changed |= stored(sales_tax, leading_number(texts.sales_tax));
    changed |= stored(currency_symbol, texts.currency_symbol);
    changed |= stored(font_size, texts.font_size);
    changed |= stored(ftp_server, texts.ftp_server);
    changed |= stored(ftp_account, texts.ftp_account);
    changed |= stored(ftp_password, texts.ftp_password);
    changed |= stored(ftp_directory, texts.ftp_directory);
    if (changed) project_modified = i16_true;
    show_audit_time();
}

void settle_settings() noexcept {
    if (font_size == 0) font_size = font_sizes.front();
    for (i16* mark : {&audit_on_startup, &save_after_audit}) {
        if (*mark > 2) *mark = 1;
    }
}

bool ftp_account_is_complete() noexcept {
    return !ftp_server.blank() && !ftp_account.blank() && !ftp_password.blank();
}

void set_setting(i16& setting, i16 value) noexcept {
    if (stored(setting, value)) project_modified = i16_true;
}

}  // namespace tavernook
