// Help pages, shown by the desktop's own viewer of HTML pages.
#pragma once

#include <string>

#include "platform/help_viewer.h"

namespace tavernook {

// The pages are "index.html" and "search.html" in the folder; without them there is no help.
class QtHelpViewer : public HelpViewer {
  public:
    explicit QtHelpViewer(std::string help_folder);

    bool show_contents() override;
    bool show_search() override;

  private:
    std::string folder_;
};

}  // namespace tavernook
