// Folders and the order of day and month, as the user's environment has them.
#pragma once

#include "platform/system_info.h"

namespace tavernook {

class QtSystemInfo : public SystemInfo {
  public:
    std::string program_folder() override;
    std::string settings_folder() override;

    // Blanks of every width are plain ones, and marks for the writing direction are left out.
    std::string short_date_format() override;
};

}  // namespace tavernook
