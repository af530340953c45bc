// The rights of new files. What is written beside a project tells as much as the project itself,
// and must not lie open to others for a moment: a new file is made empty, with the rights that it
// shall have, before anything is written into it.
#pragma once

#include <string>

namespace tavernook {

// An empty file at the path, where none is, with mode, owner, group and access list of `model`; its
// owner may write it in any case. Nothing happens without a model; what the system does not let it
// take stays narrower.
void make_with_rights_of(const std::string& model, const std::string& path) noexcept;

// When all is written: extended attributes, and the mode as it stands.
void take_attributes_of(const std::string& model, const std::string& path) noexcept;

}  // namespace tavernook
