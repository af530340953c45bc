// The half of cabinet_files.h that writes them, apart for the sake of its library's headers.
#pragma once

#include <string_view>

#include "platform/cabinets.h"

namespace tavernook {

// As Cabinets::compress.
void pack_cabinet(File& source, std::string_view entry, File& cabinet,
                  const CabinetProgress& progress);

}  // namespace tavernook
