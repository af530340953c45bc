// File dialogs that answer by script, as strict as FakeBoxes.
//
//   dialogs.expect_open("Open Project", "/home/me/home.tvk").initial_file("/home/me/*.tvk");
//   dialogs.expect_save("Save As", cancelled);
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fakes/call_log.h"
#include "fakes/script.h"
#include "platform/file_dialogs.h"

namespace tavernook {

inline constexpr std::nullopt_t cancelled = std::nullopt;

struct ExpectedFileDialog {
    enum class Kind { open, save };

    Kind kind;
    std::string title;
    std::optional<std::string> path;  // nothing = Cancel, Fault 32755
    Origin origin;
    std::optional<std::string> filter_text;   // not checked where it is nothing
    std::optional<std::string> initial_path;  // not checked where it is nothing
    std::function<void()> while_open;

    ExpectedFileDialog& filter(std::string expected) {
        filter_text = std::move(expected);
        return *this;
    }
    ExpectedFileDialog& initial_file(std::string expected) {
        initial_path = std::move(expected);
        return *this;
    }
    // Runs while the dialog is open, as the events do that arrive meanwhile.
    ExpectedFileDialog& during(std::function<void()> body) {
        while_open = std::move(body);
        return *this;
    }
    std::string name() const;
};

class FakeFileDialogs : public FileDialogs {
  public:
    ~FakeFileDialogs() override { check_used_up(); }

    ExpectedFileDialog& expect_open(std::string title, std::optional<std::string> path,
                                    const char* file = __builtin_FILE(),
                                    int line = __builtin_LINE());
    ExpectedFileDialog& expect_save(std::string title, std::optional<std::string> path,
                                    const char* file = __builtin_FILE(),
                                    int line = __builtin_LINE());

    // An empty script: a dialog fails the test instead of aborting it.
    void expect_none() { script_.install(); }
    void check_used_up() { script_.check_used_up(); }

    // The titles of all dialogs so far.
    const std::vector<std::string>& shown() const { return log.entries; }

    std::string open_file(const FileDialogRequest& request) override;
    std::string save_file(const FileDialogRequest& request) override;

    CallLog log;

  private:
    std::string answer(ExpectedFileDialog::Kind kind, const FileDialogRequest& request);

    Script<ExpectedFileDialog> script_;
};

}  // namespace tavernook
