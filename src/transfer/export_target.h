// Where an export, a back-up or a package goes: what the user has chosen, and what keeps it from
// going there.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

// Both paths lead to one file; also of a path that leads to none. Throws what the file layer
// throws.
bool is_same_file(const std::string& a, const std::string& b);

// An export to that path would cost the open project's file, another project or what belongs to
// one. Throws what the file layer throws.
bool belongs_to_a_project(const std::string& path);

// Where an export goes. The dialog gives a name that has a full stop no ending.
std::string with_extension(const std::string& path, std::string_view extension) noexcept;

// Why nothing is written there, ending in "; " + `nothing_done` ("nothing was packed") and how to
// go on; empty when it can be. `chosen` is what the user agreed to replace. Throws what the file
// layer throws.
std::string objection_to_target(const std::string& chosen, const std::string& target,
                                const std::string& nothing_done);

// The file to write where the user has chosen that name; empty, told in the message panel, when
// there is an objection. Throws what the file layer throws.
std::string export_target(const std::string& chosen, std::string_view extension,
                          const std::string& nothing_done);

}  // namespace tavernook
