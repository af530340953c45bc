// What the spoken interface says: the lines of its beginning, the answers to its keys and to scans.
// Texts only; its screen lists them and has them said.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavernook {

// Has the text said, behind what is being said.
void Speak(std::string_view text) noexcept;

std::vector<std::string> spoken_welcome() noexcept;

// The answer to the function key of that number; empty for those that have none.
std::string_view answer_to_function_key(int number) noexcept;

// With the present date and time.
std::string spoken_goodbye() noexcept;

// What a key of the window prompts to, by its code; empty for those that prompt to nothing.
std::string_view prompt_of_key(int code) noexcept;

// What a scanned line means to the project's scanner: the recipe of one of the program's own
// labels, or an item, and of a scanner that types its codes plainly the item's stock as well. None
// for an unknown code, and for scanners that type no codes.
std::vector<std::string> answer_to_scan(std::string_view line) noexcept;

}  // namespace tavernook
