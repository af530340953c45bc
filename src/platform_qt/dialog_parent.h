#pragma once

class QWidget;

namespace tavernook {

// The window that a dialog belongs over: the active one; while another program is active, the
// window of ours that would be next. None while no window is open.
QWidget* dialog_parent();

}  // namespace tavernook
