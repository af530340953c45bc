// Counts how often help was shown; `available` false stands for a program without its help.
#pragma once

#include "platform/help_viewer.h"

namespace tavernook {

class FakeHelpViewer : public HelpViewer {
  public:
    bool show_contents() override {
        if (available) ++contents_shown;
        return available;
    }
    bool show_search() override {
        if (available) ++searches_shown;
        return available;
    }

    bool available = true;
    int contents_shown = 0;
    int searches_shown = 0;
};

}  // namespace tavernook
