// Saying texts aloud.
#pragma once

#include <string_view>

namespace tavernook {

class Speech {
  public:
    virtual ~Speech() = default;

    // Says the text, behind whatever is still to be said. Does not wait for it; where nothing can
    // speak, nothing happens.
    virtual void speak(std::string_view text) noexcept = 0;

    // Cuts off what is being said, and what was to follow is not said any more.
    virtual void stop() noexcept = 0;
};

}  // namespace tavernook
