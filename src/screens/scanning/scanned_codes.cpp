#include "screens/scanning/scanned_codes.h"

#include <string>

#include "barcodes/scan_list.h"
#include "core/program_state.h"
#include "platform/platform.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

bool may_lose_scanned_codes() {
    if (project_open == 0 || scan_rows.empty()) return true;
    const std::string count = scan_rows.size() == 1
                                  ? "1 code that is"
                                  : std::to_string(scan_rows.size()) + " codes that are";
    const std::string question = "The scan list still holds " + count +
                                 " not booked, and closing the project empties the list.  Do you "
                                 "want to go on?";
    const bool goes_on =
        boxes().message(question, Buttons::yes_no, "Scan List", DefaultButton::no) == Answer::yes;
    if (goes_on) return true;
    show_screen(QStringLiteral("CS1504GETUPC"));
    if (ports::CS1504GETUPC* list = scan_list()) list->single_not_get();
    return false;
}

}  // namespace tavernook
