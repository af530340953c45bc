// The viewer of the program's help.
#pragma once

#include <string>

namespace tavernook {

class HelpViewer {
  public:
    virtual ~HelpViewer() = default;

    // All are false when there is no help to show.
    virtual bool show_contents() = 0;
    virtual bool show_search() = 0;

    // The page of the screen or dialog with that object name. Where the help has none nothing
    // changes, and that is no failure.
    virtual bool show_page(const std::string& screen) = 0;
};

}  // namespace tavernook
