// A small file written whole, or removed.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tavernook {

// Replaces the file in one step, and makes it and its folder where they are missing. An older file
// keeps its rights and extended attributes; a new one is open to those only to whom `bound` is, if
// there is such a file. Throws what the file layer throws; an older file is as it was then.
void replace_file(const std::string& path, std::string_view bytes, const std::string& bound = {});

// The same for what `write` puts into the new file, which is empty then; the older one goes when
// that has come to its end. Throws what `write` throws, too.
void replace_file(const std::string& path, const std::function<void(File&)>& write,
                  const std::string& bound = {});

// That the file is not there is no error. Throws what the file layer throws else.
void remove_if_there(const std::string& path);

}  // namespace tavernook
