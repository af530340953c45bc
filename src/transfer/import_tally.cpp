#include "transfer/import_tally.h"

#include <algorithm>
#include <vector>

#include "core/project_data.h"
#include "transfer/exchange_words.h"

namespace tavernook {

namespace {

// Nothing is in a table that nobody has touched.
template <typename Record, int N>
int live_in(const Table<Record, N>& table) {
    if (!table.is_touched()) return 0;
    int live = 0;
    for (int row = 1; row <= N; ++row) live += table[row].in_use != 0 ? 1 : 0;
    return live;
}

// "a, b and c".
std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (std::size_t place = 0; place < parts.size(); ++place) {
        if (place > 0) text += place + 1 < parts.size() ? ", " : " and ";
        text += parts[place];
    }
    return text;
}

}  // namespace

LiveCounts live_counts() noexcept {
    return {live_in(items),  live_in(meals),      live_in(units),
            live_in(stores), live_in(catagories), live_in(wams)};
}

LiveCounts ImportTally::gained() const {
    const LiveCounts now = live_counts();
    const auto more = [](int after, int before) { return std::max(after - before, 0); };
    return {more(now.items, before_.items),           more(now.recipes, before_.recipes),
            more(now.units, before_.units),           more(now.stores, before_.stores),
            more(now.catagories, before_.catagories), more(now.measures, before_.measures)};
}

std::string ImportTally::words() const {
    const LiveCounts came = gained();
    std::vector<std::string> parts;
    const auto tell = [&](int count, const char* one, const char* many) {
        if (count > 0) parts.push_back(counted(count, one, many));
    };
    tell(came.items, "item", "items");
    tell(came.recipes, "recipe", "recipes");
    tell(came.units, "new unit", "new units");
    tell(came.stores, "new store", "new stores");
    tell(came.catagories, "new category", "new categories");
    tell(came.measures, "line of weights and measures", "lines of weights and measures");
    return parts.empty() ? "nothing" : joined(parts);
}

void LeftOut::add(std::string_view row, std::string_view why) {
    if (count_++ > 0) return;
    first_ = std::string(row) + ": " + std::string(why);
}

std::string LeftOut::words() const {
    if (count_ == 0) return {};
    const bool is_one = count_ == 1;
    return "; " + counted(count_, "row was", "rows were") + " left out, " +
           (is_one ? "" : "the first is ") + first_;
}

}  // namespace tavernook
