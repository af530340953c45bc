// A file that comes with the program and lies in its folder, where the user may change it.
//
// The settings store keeps a sum of what was placed. So a newer program, which brings another
// content, tells its own file, which it renews, from one that the user has changed or put there,
// which stays as it is for ever.
#pragma once

#include <functional>
#include <string>

namespace tavernook {

// Places it under its name in the program's folder, whole or not at all, where nothing bears that
// name or what an older program has placed; `bytes` gives its content and may throw a Fault. False
// when it could not be placed.
[[nodiscard]] bool place_shipped_file(const std::string& name,
                                      const std::function<std::string()>& bytes) noexcept;

}  // namespace tavernook
