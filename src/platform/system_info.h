// Facts of the machine and of the user's choices there.
#pragma once

#include <string>

namespace tavernook {

class SystemInfo {
  public:
    virtual ~SystemInfo() = default;

    // The program's own writable folder of the present user, without a "/" at the end.
    virtual std::string program_folder() = 0;

    // Where "TVK.dat" lives, without a "/" at the end.
    virtual std::string settings_folder() = 0;

    // As in "dd.MM.yyyy" or "M/d/yy".
    virtual std::string short_date_format() = 0;
};

}  // namespace tavernook
