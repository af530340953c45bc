// Pictures from files, as they may go into a recipe.
#pragma once

#include <string>

#include "rich_text/rtf_pictures.h"

namespace tavernook {

// As large as a text keeps it. Looks at the size of the file, and of the picture in it, before any
// dot is drawn. Faults of the file layer.
rtf::RasterPicture picture_in_file(const std::string& path);

}  // namespace tavernook
