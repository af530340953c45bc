// The help as the logic asks for it. Its window and what it reads are made at the first use.
#pragma once

#include <QStringList>
#include <memory>
#include <string>

#include "platform/help_viewer.h"
#include "screens/aids/help_book.h"

namespace tavernook {

class HelpWindow;

class HelpDesk : public HelpViewer {
  public:
    // The help file is looked for in the folders, in their order.
    explicit HelpDesk(QStringList folders);
    ~HelpDesk() override;

    bool show_contents() override;
    bool show_search() override;
    bool show_page(const std::string& screen) override;

  private:
    HelpWindow& window();  // of the book that is open

    HelpBook book_;
    std::unique_ptr<HelpWindow> window_;
};

}  // namespace tavernook
