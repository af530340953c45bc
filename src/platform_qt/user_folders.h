// Where the present user's files live.
#pragma once

#include <QString>

namespace tavernook {

// $TAVERNOOK_HOME as an absolute path; empty when it is not set. It moves everything that the
// program keeps for the user.
QString portable_home();

// $XDG_DATA_HOME and $XDG_CONFIG_HOME or what stands in for them; a relative path in them does
// not count.
QString data_home();
QString config_home();

}  // namespace tavernook
