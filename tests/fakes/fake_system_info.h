// Facts of the machine as a test wants them.
#pragma once

#include <string>

#include "platform/system_info.h"

namespace tavernook {

class FakeSystemInfo : public SystemInfo {
  public:
    std::string program_folder() override { return program; }
    std::string settings_folder() override { return settings; }
    std::string short_date_format() override { return date_format; }

    std::string program;
    std::string settings;
    std::string date_format = "M/d/yyyy";
};

}  // namespace tavernook
