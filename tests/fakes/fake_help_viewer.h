// Counts how often help was shown; `available` false stands for a program without its help.
#pragma once

#include <string>
#include <vector>

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
    bool show_page(const std::string& screen) override {
        if (available) pages_shown.push_back(screen);
        return available;
    }

    bool available = true;
    int contents_shown = 0;
    int searches_shown = 0;
    std::vector<std::string> pages_shown;  // as they were asked for
};

}  // namespace tavernook
