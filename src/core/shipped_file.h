// A file that comes with the program and lies in its folder, where the user may change it.
#pragma once

#include <functional>
#include <string>

namespace tavernook {

// Places it under its name in the program's folder, whole or not at all, unless something bears
// that name already; `bytes` gives its content and may throw a Fault. False when it could not be
// placed.
[[nodiscard]] bool place_shipped_file(const std::string& name,
                                      const std::function<std::string()>& bytes) noexcept;

}  // namespace tavernook
