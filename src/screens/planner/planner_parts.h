// What the panes of the planner have in common.
#pragma once

#include <memory>

class QTreeView;
class QWidget;

namespace tavernook {

// The layout of a pane, set up before its other parts are made.
template <typename Layout, typename Pane>
std::unique_ptr<Layout> laid_out(Pane& pane) {
    auto layout = std::make_unique<Layout>();
    layout->setupUi(&pane);
    return layout;
}

// Shift+F10 asks for the context menu; not every system does so by itself.
void open_menu_by_keys(QWidget& part);

// A list that the keys come to has a row for them to work on.
void mark_first_row_when_entered(QTreeView& list);

}  // namespace tavernook
