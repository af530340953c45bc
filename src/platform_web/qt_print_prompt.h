// The print dialog, for a printer or a PDF file.
#pragma once

#include "platform/html_view.h"

namespace tavernook {

// The paper is Letter where people use that, else A4, with margins of 10 mm.
class QtPrintPrompt : public PrintPrompt {
  public:
    std::shared_ptr<QPrinter> ask(QWidget& over, const std::string& title, bool is_wide) override;
};

}  // namespace tavernook
