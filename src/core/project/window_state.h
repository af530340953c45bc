// What "TVK.dat" (core/project/settings_file.h) keeps of the main window.
#pragma once

namespace tavernook {

// hide_welcome_dialog and window_geometry to the file and back.
void save_window_state() noexcept;
void load_window_state() noexcept;

}  // namespace tavernook
