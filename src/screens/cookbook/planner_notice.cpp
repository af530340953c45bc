#include "screens/cookbook/planner_notice.h"

#include "screens/cookbook/plan_commands.h"
#include "screens/parts/plan_names.h"

namespace tavernook {

void PlannerNotice::begin() {
    date_ = date_of_the_planner();
    setText(tr("For %1: press Enter on a recipe, or double click it. Esc goes back to the planner "
               "without one.")
                .arg(spoken_date(*date_)));
    show();
}

void PlannerNotice::end() {
    date_.reset();
    hide();
}

}  // namespace tavernook
