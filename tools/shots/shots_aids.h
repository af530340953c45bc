// Pictures of the calculator and the spoken interface.
#pragma once

#include "platform/speech.h"
#include "shots/shots_lookups.h"

namespace tavernook {

// Nobody listens.
class NoVoice : public Speech {
  public:
    void speak(std::string_view) noexcept override {}
    void stop() noexcept override {}
};

// Of the project that is open.
void take_aid_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
