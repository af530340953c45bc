// What the toolbars of the child screens have in common.
#pragma once

#include <utility>
#include <vector>

class QAction;
class QToolBar;
class QWidget;

namespace tavernook {

// Puts the screen's actions BAR_POSITION into the bar, each with its icon, its mnemonic, a place in
// the tab order and a button named BAR_POSITION_button. A position without an icon is a separator.
void fill_toolbar(QWidget& screen, QToolBar& bar,
                  const std::vector<std::pair<int, const char*>>& icons);

// Large pictures with their words: beside them, which leaves more of the screen to what it is for,
// or below where the toolbar is too narrow for that.
void show_captions(QToolBar& bar);

// The most frequent command of a screen: larger than the others, its text beside the icon.
void enlarge_command(QToolBar& bar, QAction& action);

}  // namespace tavernook
