#include "structure/arrows.h"

#include <map>
#include <set>

#include "structure/includes.h"

namespace tavernook::structure {

namespace {

using Rooms = std::set<std::string>;

Rooms operator+(Rooms rooms, const Rooms& more) {
    rooms.insert(more.begin(), more.end());
    return rooms;
}

const Rooms ground = {"basics", "platform", "core"};
const Rooms up_to_planning = ground + Rooms{"inventory", "recipes", "shopping", "planning"};
const Rooms up_to_project = up_to_planning + Rooms{"barcodes", "core/project_file", "core/project"};
const Rooms logic = up_to_project + Rooms{"reports", "transfer", "aids", "today"};
const Rooms of_a_screen = logic + Rooms{"screens/parts"};
const Rooms screens = {"screens/pantry",  "screens/lookups", "screens/cookbook", "screens/planner",
                       "screens/grocery", "screens/reports", "screens/scanning", "screens/exchange",
                       "screens/aids",    "screens/today"};
const Rooms outside = {"platform_disk", "platform_web", "platform_services", "platform_qt"};
const Rooms tops = {"screens/frame", "command_line"};

// Room -> the rooms, beside itself, that its files may include.
const std::map<std::string, Rooms> arrows = {
    {"basics", {}},
    {"platform", {"basics"}},
    {"core", {"basics", "platform"}},
    {"core/project_file", ground},
    {"inventory", ground},
    {"recipes", ground + Rooms{"inventory"}},
    {"shopping", ground + Rooms{"inventory"}},
    {"planning", ground + Rooms{"inventory", "recipes"}},
    {"barcodes", ground + Rooms{"inventory", "shopping"}},
    {"core/project", up_to_planning + Rooms{"core/project_file"}},
    {"reports", up_to_project},
    {"transfer", up_to_project},
    {"aids", up_to_project},
    {"today", up_to_project},
    {"rich_text", {"basics"}},
    {"platform_disk", {"basics", "platform"}},
    {"platform_web", {"basics", "platform"}},
    {"platform_services", {"basics", "platform"}},
    {"platform_qt", up_to_project + Rooms{"aids", "platform_disk", "platform_services"}},
    {"screens", {}},  // what is compiled in advance
    {"screens/parts", logic},
    // Rich text that knows no recipe; the pictures of codes that it draws are no facts either.
    {"screens/text", ground + Rooms{"barcodes", "rich_text", "screens/parts"}},
    {"screens/pantry", of_a_screen},
    {"screens/lookups", of_a_screen},
    {"screens/cookbook", of_a_screen + Rooms{"screens/text"}},
    {"screens/planner", of_a_screen},
    {"screens/grocery", of_a_screen},
    {"screens/reports", of_a_screen},
    {"screens/scanning", of_a_screen},
    {"screens/exchange", of_a_screen},
    {"screens/aids", of_a_screen},
    {"screens/today", of_a_screen},
    {"screens/frame", of_a_screen + screens + Rooms{"screens/text"}},
    {"command_line", logic + Rooms{"platform_disk"}},
    {"app", of_a_screen + screens + outside + tops + Rooms{"rich_text", "screens", "screens/text"}},
};

std::string folder_of(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool names_its_rooms(const std::string& room) {
    return room == "core" || room == "screens";
}

}  // namespace

std::string room_of(const std::string& path) {
    const std::string own = folder_of(path);
    if (arrows.count(own) > 0) return own;
    for (std::string room = folder_of(own); !room.empty(); room = folder_of(room)) {
        if (arrows.count(room) > 0) return names_its_rooms(room) ? "" : room;
    }
    return "";
}

std::vector<std::string> broken_arrows(const SourceTree& tree) {
    std::vector<std::string> offences;
    for (const auto& [file, text] : tree) {
        const std::string own = room_of(file);
        if (own.empty()) {
            offences.push_back(file + " lies in no known room");
            continue;
        }
        for (const Include& include : includes_of(text)) {
            const std::string target = target_of(tree, file, include);
            const std::string room = room_of(target);
            if (target.rfind("..", 0) == 0) {
                offences.push_back(place(file, include.line) + " leaves src/ for " + target);
            } else if (!room.empty() && room != own && arrows.at(own).count(room) == 0) {
                offences.push_back(place(file, include.line) + " must not include " + target);
            }
        }
    }
    return offences;
}

}  // namespace tavernook::structure
