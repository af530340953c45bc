// Pictures from files, as they may go into a recipe.
#pragma once

#include <QImage>
#include <string>

namespace tavernook {

struct FilePicture {
    QImage picture;  // null when the file holds none that can be shown
    bool is_too_large = false;
};

// Looks at the size of the file, and of the picture in it, before any dot is drawn. Faults of the
// file layer.
FilePicture picture_in_file(const std::string& path);

}  // namespace tavernook
