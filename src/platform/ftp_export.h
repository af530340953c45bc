// The window that publishes: a list of texts, a bar from 0 to 100, "Close" and "Cancel".
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook::ports {

class FtpExport {
  public:
    virtual ~FtpExport() = default;

    // What becomes of the window at the end; see reports/publishing.
    virtual void setstyle(i16 style) = 0;

    // Returns at once; the work begins with the window's first tick. In front where it is shown.
    virtual void show() = 0;

    // Adds a line, in sight, and lets the window repaint and hear the user.
    virtual void updatetext(std::string_view text) = 0;
    virtual void set_progress(int percent) = 0;
    virtual void enable_close(bool enabled) = 0;

    // Hides and unloads it.
    virtual void unload() = 0;
};

}  // namespace tavernook::ports
