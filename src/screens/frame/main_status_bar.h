// The three panels of the main window's status bar: messages, the time of the daily audit, and what
// is being done. Assistive technology hears each text as it comes, a message as an alert.
#pragma once

#include <array>
#include <string_view>

class QLabel;
class QStatusBar;

namespace tavernook {

class MainStatusBar {
  public:
    explicit MainStatusBar(QStatusBar& bar);

    // By the numbers of platform/main_window.h; others are passed over. The text is painted at
    // once, as long work does not return to the event loop.
    void set_text(int panel, std::string_view text);

  private:
    void add_panel(std::size_t place);

    QStatusBar& bar_;
    std::array<QLabel*, 3> panels_{};
};

}  // namespace tavernook
