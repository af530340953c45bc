// The program with a project and its four main screens open, and what that keeps in memory:
//   open_project PROJECT
// Without a project an empty main window alone, which is the yardstick. It prints VmRSS in kB
// behind each step.
#include <QApplication>
#include <QMainWindow>
#include <QTreeView>
#include <cstdio>
#include <fstream>
#include <string>

#include "app/program_start.h"
#include "core/program_state.h"
#include "platform/platform.h"
#include "platform_qt/qt_platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/register_screens.h"
#include "screens/lookups/ReplaceItem.h"
#include "screens/parts/screen_switch.h"

namespace {

void tell(const char* step) {
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word != "VmRSS:") continue;
        long kilobytes = 0;
        status >> kilobytes;
        std::printf("%ld %s\n", kilobytes, step);
    }
}

int show_empty_window() {
    QMainWindow window;
    window.resize(1280, 900);
    window.show();
    tell("an empty main window");
    return 0;
}

void use_lists(QWidget& window) {
    for (QTreeView* list : window.findChildren<QTreeView*>()) {
        list->expandAll();
        if (list->isSortingEnabled()) list->sortByColumn(0, Qt::DescendingOrder);
        list->scrollToBottom();
    }
}

int show_screens(QApplication& application, const char* project) {
    using namespace tavernook;
    introduce_program(application);
    QtPlatform outside;
    Main window;
    ReplacementScreen replacement;
    Platform parts = outside.platform(&window.progress(), &window, &window.registry());
    parts.replace_item = &replacement;
    set_platform(parts);
    register_screens(window);
    if (!place_program_files()) return 1;
    window.resize(1280, 900);
    window.show();
    tell("the main window");
    window.load(project);
    if (project_open == 0) return 1;
    tell("the project, with its planner");
    for (const char* screen : {"FoodInventory", "Mealbuilder", "ShoppingList", "MealPlan"}) {
        if (show_screen(QLatin1String(screen)) == nullptr) return 1;
        tell(screen);
    }
    use_lists(window);
    tell("every tree opened, every list sorted and scrolled");
    project_modified = i16_false;
    window.registry().unload_all();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return argc < 2 ? show_empty_window() : show_screens(application, argv[1]);
}
