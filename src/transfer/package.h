// A project on its way to another machine: packed into one file together with the texts of its
// recipes ("home.vpk", transfer/package_file.h), and unpacked there.
//
// A package is of the project as it is: packing saves first. A text that is missing is left out and
// told. An older package is replaced in one step; where packing fails or is cancelled it stays.
//
// Unpacking looks the whole package over before anything is written, and writes everything under
// names of its own before anything is put in place: a damaged package, a full disk and "Cancel"
// change nothing. The project goes beside its package; one that is there is moved aside under a
// numbered name. The texts go into this program's own folder of recipes, over those of the same
// name where the user wants it; one of the open project that is replaced so stays replaced.
#pragma once

#include <string>

namespace tavernook {

// Every way to fail ends in a box and in the message panel.
void pack_project(const std::string& target) noexcept;

// Asks for each text that is there, and at the end whether to open the project.
void unpack_project(const std::string& source) noexcept;

// Asks for the target. Does nothing without a project; a name that would cost a project file is
// refused in the message panel.
void projpack_pack() noexcept;

void projpack_unpack() noexcept;

}  // namespace tavernook
