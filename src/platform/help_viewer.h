// The viewer of the program's help.
#pragma once

namespace tavernook {

class HelpViewer {
  public:
    virtual ~HelpViewer() = default;

    // Both are false when there is no help to show.
    virtual bool show_contents() = 0;
    virtual bool show_search() = 0;
};

}  // namespace tavernook
