#include "planning/planner_state.h"

namespace tavernook {

i16 current_day = 0;
i16 selected_day = 0;
i16 selected_month = 0;
i16 selected_year = 0;
i16 copy_source_day = 0;
i16 day_changed = i16_false;
i16 pending_calendar_refresh = i16_false;
i16 full_table_told = i16_false;
DayClipboard day_clipboard;

void reset_planner_state() noexcept {
    current_day = 0;
    selected_day = 0;
    selected_month = 0;
    selected_year = 0;
    copy_source_day = 0;
    day_changed = i16_false;
    pending_calendar_refresh = i16_false;
    full_table_told = i16_false;
    day_clipboard = DayClipboard{};
}

}  // namespace tavernook
