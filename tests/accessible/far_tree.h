// The accessible tree of another program, read over the bus as a screen reader reads it.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace tavernook {

// The numbers of the protocol, as far as anything is asked about them here.
enum class FarRole {
    check_box = 7,
    combo_box = 11,
    frame = 23,
    label = 29,
    layered_pane = 30,
    list = 31,
    list_item = 32,
    menu_bar = 34,
    menu_item = 35,
    password = 40,
    popup_menu = 41,
    push_button = 43,
    separator = 50,
    spin_button = 52,
    status_bar = 54,
    table = 55,
    table_cell = 56,
    column_header = 57,
    row_header = 58,
    text = 61,
    tree = 65,
    tree_table = 66,
    paragraph = 73,
    document = 82,
    tree_item = 91,
    notification = 101
};

enum class FarState { checked = 4, focusable = 11, showing = 25 };

struct FarPart {
    QString path;
    FarRole role{};
    QString role_name;
    QString name;
    QString description;
    QString text;         // what stands in it, where it holds a text
    QString labelled_by;  // the name of its label; asked for where its own name is not enough
    std::uint64_t states = 0;
    int columns = 0;         // of a table or tree
    bool is_behind = false;  // a screen of the area that is not the one in front
    std::vector<FarPart> children;

    bool is(FarState state) const { return states >> static_cast<int>(state) & 1; }
    bool is_table() const {
        return role == FarRole::table || role == FarRole::tree || role == FarRole::tree_table ||
               role == FarRole::list;
    }
    bool is_header() const { return role == FarRole::column_header || role == FarRole::row_header; }
};

// The bus name of the one program that the registry knows; empty as long as there is none.
QString far_program(const QDBusConnection& bus);

// How much is read: a screen reader of flesh and blood has more time.
struct FarReading {
    QString front;            // of the screens in the area only the one with this title
    bool with_menus = false;  // with the entries of menus that are closed
};

// All its windows. What is out of sight is told without its parts. Of a list with very many rows
// only the first ones are read.
FarPart read_far_tree(const QDBusConnection& bus, const QString& program,
                      const FarReading& reading);

// What has come up over its window, a calendar beside a field, that no window tells of: of the
// paths of parts that came up, the last one that is not in `known` and belongs to a part that is.
FarPart read_far_popup(const QDBusConnection& bus, const QString& program,
                       const QStringList& came_up, const FarPart& known);

// A line a part, each further in than what it is a part of.
QString written(const FarPart& part, int depth = 0);

}  // namespace tavernook
