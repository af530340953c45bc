// A voice that is another program: "espeak-ng", started anew for each text, which it reads from its
// standard input. Texts wait in line; a thread of its own says one after the other, so that nobody
// waits for a voice. What the program writes goes nowhere, and of the files that are open here it
// gets none. Where it is not installed, or finds nothing to sound on, it is over at once and in
// silence.
//
// To stop is to end that program. It is always waited for, so that no trace of it stays behind.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <thread>
#include <vector>

#include "platform/speech.h"

namespace tavernook {

// The program and its arguments: it takes all of its standard input, UTF-8, for one text.
std::vector<std::string> espeak_command();

class EspeakSpeech : public Speech {
  public:
    explicit EspeakSpeech(std::vector<std::string> command = espeak_command());
    ~EspeakSpeech() override;  // stops

    void speak(std::string_view text) noexcept override;
    void stop() noexcept override;

  private:
    void say_one_after_the_other();
    void begin(const std::string& text) noexcept;
    void wait_for_end(std::unique_lock<std::mutex>& lock);
    void silence();

    const std::vector<std::string> command_;
    std::mutex mutex_;  // over all that follows
    std::condition_variable wake_;
    std::deque<std::string> waiting_;  // UTF-8
    pid_t voice_ = 0;                  // the program while it runs and until it was waited for
    bool ends_ = false;
    std::thread thread_;  // from the first text on
};

}  // namespace tavernook
