// The project's settings as the setup screen shows and takes them: its texts and lists on one
// side, the stored values on the other.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

inline constexpr std::array<i16, 14> font_sizes = {8,  10, 12, 14, 16, 18, 20,
                                                   22, 24, 26, 28, 36, 48, 72};
inline constexpr std::array<i16, 3> currency_symbols = {36, 165, 163};  // dollar, yen, pound
inline constexpr i16 scanner_types = 4;                                 // 0 to 3
inline constexpr i16 comm_ports = 16;                                   // 1 to 16

// The time of the audit as its three lists show it. The hour of a list that is left as it is is 0.
struct ShownAuditTime {
    i16 hour = 0;    // 1 to 12
    i16 minute = 0;  // 0 to 59
    bool afternoon = false;
};

// Hour 0 is shown as 11 PM, 12 leaves the hour as it is. Hours beyond a day leave it, too.
ShownAuditTime shown_audit_time() noexcept;

// 12 PM is 24 and 12 AM is 12; kept, projects hold such hours.
i16 stored_audit_hour(i16 shown_hour, bool afternoon) noexcept;

// "Audit Time: 11:59 PM" in the status bar; "-:-" for hour 0.
void show_audit_time() noexcept;

// What is written when the user accepts.
struct SetupTexts {
    i16 audit_hour = 0;
    i16 audit_minute = 0;
    std::string audit_days_ahead;  // numbers as typed: the leading number counts
    std::string expiration_warning_days;
    std::string sales_tax;
    i16 currency_symbol = 0;
    i16 font_size = 0;
    std::string ftp_server, ftp_account, ftp_password, ftp_directory;
};

// As stored, texts without blanks at their end.
SetupTexts present_setup() noexcept;

// Writes all of them, marks the project as modified where something differs, and shows the time of
// the audit. Fault 6 for a number beyond 16 bits; nothing has changed then.
void accept_setup(const SetupTexts& texts);

// Brings what a project may hold into what the lists know: font size 0 becomes 8, the two marks
// become 1 where they are above 2.
void settle_settings() noexcept;

// Server, account and password of the web space are there; nothing is published without them.
bool ftp_account_is_complete() noexcept;
inline constexpr std::string_view incomplete_ftp_account =
    "The FTP account information has not been entered completely in the PROJECT SETUP.  Please "
    "check PROJECT SETUP and verify that all information has been entered.";

// A setting that is written at once. Marks the project as modified where it differs.
void set_setting(i16& setting, i16 value) noexcept;

}  // namespace tavernook
