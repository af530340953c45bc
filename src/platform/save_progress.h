// The small window that tells of long work: a caption, a label and a bar from 0 to 100.
#pragma once

#include <string_view>

namespace tavernook::ports {

class SaveProgress {
  public:
    virtual ~SaveProgress() = default;

    virtual void load(std::string_view caption, std::string_view label) = 0;
    virtual void show() = 0;
    virtual void set_label(std::string_view label) = 0;
    virtual void workbar(int percent) = 0;

    // From now to `unload` the window has a button "Cancel".
    virtual void offer_cancel() {}

    // The user has pressed it. Lets the window hear the user, and nothing else of the program.
    virtual bool is_cancelled() { return false; }
    virtual void hide() = 0;
    virtual void unload() = 0;
};

}  // namespace tavernook::ports
