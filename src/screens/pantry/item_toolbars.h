// The looks of the item screen's toolbars: what stands in them, and how big.
#pragma once

#include <vector>

class QToolBar;
class QWidget;

namespace tavernook {

// The commands, and the bar with the one command that is used most, which is the biggest and is
// pressed by Enter, too.
void dress_item_toolbars(QWidget& screen, QToolBar& commands, QToolBar& accept);

std::vector<QWidget*> buttons_in_order(const QToolBar& bar);

}  // namespace tavernook
