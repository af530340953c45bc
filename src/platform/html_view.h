// A view of one page of the program's own files: shown, edited in place, printed, saved. Behind it
// is an engine for web pages that is loaded with the first view. Whatever a page holds, none of its
// scripts runs and nothing of it reaches the network.
//
// Answers come later, through the event loop, each once. With the view goes what it still had to
// answer.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

class QPrinter;
class QWidget;

namespace tavernook {

class HtmlView {
  public:
    virtual ~HtmlView() = default;

    // What shows the page. It belongs to the view and goes with it.
    virtual QWidget& widget() = 0;

    // The page of a file, with the pictures of its folder. What was typed into the page before is
    // gone. `shown` hears whether it stands there.
    virtual void navigate(const std::string& path, std::function<void(bool)> shown) = 0;

    // From now to the next page the user types into it.
    virtual void set_design_mode_on() = 0;

    // A copy of the picture comes where the cursor stands. False when the file holds none.
    virtual bool insert_image(const std::string& path) = 0;

    // The page with its edits, whole by itself, its pictures inside, as the bytes of a file in
    // windows-1252. Nothing when the page could not be read.
    virtual void read_page(std::function<void(std::optional<std::string>)> done) = 0;

    // Prints the page as it stands; a printer that writes a PDF file gets texts as texts.
    // `progress` hears percents of long ones, `done` whether everything was handed to the printer;
    // false as well behind `cancel_printing`.
    virtual void print(std::shared_ptr<QPrinter> printer, std::function<void(int)> progress,
                       std::function<void(bool)> done) = 0;
    virtual void cancel_printing() = 0;

    // Told when the engine has died: the view is blank until the next page.
    virtual void when_lost(std::function<void()> told) = 0;
};

class HtmlViews {
  public:
    virtual ~HtmlViews() = default;

    // Throws a Fault that says why when the engine cannot be loaded.
    virtual std::unique_ptr<HtmlView> make() = 0;
};

// Asks for the printer, its paper and the copies. Null when the user did not want to print.
class PrintPrompt {
  public:
    virtual ~PrintPrompt() = default;

    // A wide page is offered a sheet that lies across.
    virtual std::shared_ptr<QPrinter> ask(QWidget& over, const std::string& title,
                                          bool is_wide) = 0;
};

// What the library of the engine gives away: functions of these names, without parameters, that
// give a pointer to its HtmlViews and to its PrintPrompt.
inline constexpr char html_views_entry[] = "tavernook_html_views";
inline constexpr char print_prompt_entry[] = "tavernook_print_prompt";

}  // namespace tavernook
