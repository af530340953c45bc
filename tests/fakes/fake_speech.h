// A voice that records: "speak Hello", "stop".
#pragma once

#include <string>
#include <string_view>

#include "fakes/call_log.h"
#include "platform/speech.h"

namespace tavernook {

class FakeSpeech : public Speech {
  public:
    void speak(std::string_view text) noexcept override { log.add("speak " + std::string(text)); }
    void stop() noexcept override { log.add("stop"); }

    CallLog log;
};

}  // namespace tavernook
