#include "reports/pages/text_table.h"

namespace tavernook {

std::size_t room_for(const TextTable& table) noexcept {
    constexpr std::size_t markup_of_a_cell = 64;
    constexpr std::size_t markup_of_the_page = 4096;
    constexpr std::size_t markup_of_a_row = 16;
    std::size_t room = markup_of_the_page + table.titles.size() * 4 * markup_of_a_cell;
    for (const std::vector<std::string>& row : table.rows) {
        room += markup_of_a_row + row.size() * markup_of_a_cell;
        for (const std::string& cell : row) room += cell.size();
    }
    return room;
}

}  // namespace tavernook
