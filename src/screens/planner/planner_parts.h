// What the panes of the planner have in common.
#pragma once

#include <QObject>
#include <type_traits>
#include <utility>
#include <vector>

class QTreeView;

namespace tavernook {

// What a pane tells by a signal is a command of its screen: a function or one of its methods, which
// gets what the signal tells.
template <typename Screen, typename Pane, typename Signal, typename Command>
void on_wish(Screen& screen, const Pane& pane, Signal signal, Command command) {
    QObject::connect(&pane, signal, &screen, [&screen, command](const auto&... told) {
        screen.run([&] {
            if constexpr (std::is_member_function_pointer_v<Command>) {
                (screen.*command)(told...);
            } else {
                command(told...);
            }
        });
    });
}

// So many letters for each of these columns, also when the text of the list gets larger later on;
// what is wider by then stays. No column can be made narrower than the title "Quantity".
void give_columns_room(QTreeView& list, const std::vector<std::pair<int, int>>& letters);

// A list that the keys come to has a row for them to work on.
void mark_first_row_when_entered(QTreeView& list);

}  // namespace tavernook
