// What belongs to a file beside its bytes. As far as the system lets it: what cannot be taken over
// is left out, and rights are then narrower, never wider, than those of the model.
#pragma once

#include <string>

namespace tavernook {

// Mode, owner, group and access list. Where the group cannot be taken over, it gets no more than
// everybody has.
void take_rights(const std::string& model, const std::string& path) noexcept;

// The user's own attributes, and the label that the system goes by.
void take_extended_attributes(const std::string& model, const std::string& path) noexcept;

// Beside what it may do already.
void let_owner_write(const std::string& path) noexcept;

}  // namespace tavernook
