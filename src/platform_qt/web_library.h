// The way to the previews: the library behind them is loaded when the first is wanted, so that
// nobody else pays for an engine of that size.
#pragma once

#include <string>
#include <vector>

#include "platform/html_view.h"

namespace tavernook {

class WebLibrary : public HtmlViews, public PrintPrompt {
  public:
    // It is looked for in these folders, the first first.
    explicit WebLibrary(std::vector<std::string> folders);

    // Both throw Fault 53 with what to do about it when the library cannot be loaded.
    std::unique_ptr<HtmlView> make() override;
    std::shared_ptr<QPrinter> ask(QWidget& over, const std::string& title, bool is_wide) override;

  private:
    void load();

    std::vector<std::string> folders_;
    HtmlViews* views_ = nullptr;
    PrintPrompt* prompt_ = nullptr;
};

// Where it lies: beside the program, or where packages put libraries.
std::vector<std::string> web_library_folders();

}  // namespace tavernook
