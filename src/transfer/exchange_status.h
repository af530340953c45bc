// The status window of an exchange, and the frame around every import into the inventory.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// Adds a line to the status window.
void log_exchange_line(std::string_view text) noexcept;

// The status window is at work as long as one lives.
class ExchangeStatus {
  public:
    explicit ExchangeStatus(std::string_view caption);
    ~ExchangeStatus();
    ExchangeStatus(const ExchangeStatus&) = delete;
    ExchangeStatus& operator=(const ExchangeStatus&) = delete;

    // So many of all are done. Throws Fault 32755 when the user has pressed "Cancel", for which it
    // asks where the bar moves.
    void step(i64 done, i64 all);

    // All is done, whatever was counted on the way.
    void complete();

  private:
    int shown_ = 0;
};

// Runs `work`, which brings in what the file at `source` has and returns the sentence that tells of
// it, with the status window up. All of it comes in or nothing: on a Fault and on "Cancel" the
// project is as it was. The sentence, or another that says so, is the last line of the status
// window and stands in the message panel. A Fault has its line in the status window, too, and its
// box.
using ImportWork = std::function<std::string(ExchangeStatus&)>;
void run_import(const std::string& source, const ImportWork& work) noexcept;

}  // namespace tavernook
