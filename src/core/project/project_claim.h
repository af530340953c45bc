// One program at a time has a project. Claims are taken before a project is opened or written under
// a new name and given back when it is closed.
#pragma once

#include <string>

namespace tavernook {

// False when another running program has the project; the user has been told then. A lock that was
// left by another machine is for the user to judge: one question, and true when he takes the
// project over. The claim that this program held before stays until `keep_only_claim` or
// `release_claims`.
[[nodiscard]] bool claim_project(const std::string& path) noexcept;

// Gives back every claim but this one.
void keep_only_claim(const std::string& path) noexcept;
void release_claims() noexcept;

}  // namespace tavernook
