// The order in which Tab goes through the parts of a screen, across its panes.
#pragma once

#include <vector>

class QWidget;

namespace tavernook {

// One after the other, whatever stood between them. Two parts that Qt takes for neighbours already
// stay where they are in its own order, with a pane between that leads elsewhere; so each part is
// put behind the first one, from the last to the second.
void set_tab_order(const std::vector<QWidget*>& parts);

}  // namespace tavernook
