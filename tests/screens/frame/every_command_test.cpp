// Every entry of the menus and every button of the toolbars: what it is called, when it can be had,
// and what is so behind it. Each is chosen as a user does, an entry by the letters of its menu and
// of its own, a button by the mouse. The tables are held against the window both ways: what has no
// row here fails a test, and so does a row without its control.
#include <QMdiSubWindow>
#include <filesystem>
#include <fstream>
#include <functional>

#include "gui_support/modal_driver.h"
#include "screens/aids/Dialog.h"
#include "screens/frame/About.h"
#include "screens/frame/ProjectSetup.h"
#include "screens/frame/household_fixture.h"

namespace tavernook {
namespace {

class EveryCommand;

enum class Had { always, with_project, with_screen, elsewhere };

struct CommandRow {
    const char* place;    // the menu or toolbar
    const char* name;     // "-" for a separator
    const char* caption;  // as it stands there; nothing where it depends
    Had had;
    void (EveryCommand::*does)();
};

class EveryCommand : public HouseholdTest, public testing::WithParamInterface<CommandRow> {
  public:
    // --- what is so behind the commands of the menu "File"

    void makes_a_project() {
        const std::string path = platform.path("second.tvk");
        platform.dialogs.expect_save("New Project", path);
        choose();
        EXPECT_TRUE(platform.disk.exists(path));
        expect_project("second.tvk");
        EXPECT_EQ(items[milk].in_use, 0);
    }
    void opens_a_project() {
        copy_of_home("other.tvk");
        platform.dialogs.expect_open("Open Project", platform.path("other.tvk"));
        choose();
        expect_project("other.tvk");
        EXPECT_EQ(items[milk].name, "Milk");
    }
    void saves() {
        const std::string before = bytes_of(home);
        sales_tax = 7.5;
        project_modified = i16_true;
        choose();
        EXPECT_EQ(project_modified, i16_false);
        EXPECT_NE(bytes_of(home), before);
        expect_project("home.tvk");
    }
    void saves_under_another_name() {
        platform.dialogs.expect_save("Save As", platform.path("copy.tvk"));
        choose();
        EXPECT_TRUE(platform.disk.exists(platform.path("copy.tvk")));
        expect_project("copy.tvk");
    }
    void closes_the_project() {
        open("wam");
        project_modified = i16_true;
        platform.boxes
            .expect_message("Project has been modified.  Would you like to save before closing?",
                            Answer::no)
            .buttons(Buttons::yes_no_cancel);
        choose();
        EXPECT_EQ(project_open, i16_false);
        EXPECT_FALSE(is_open("wam"));
        EXPECT_EQ(shown_title(), "Tavernook");
    }
    void offers_the_ways_to_other_programs() {
        choose();
        EXPECT_EQ(QApplication::activePopupWidget(), &menu("mnuProjectTransfer"));
        press("Escape");
        press("Escape");
        press("Escape");
    }
    void backs_up() {
        platform.dialogs.expect_save("Back-up Project", platform.path("home.vzk"));
        choose();
        EXPECT_TRUE(platform.disk.exists(platform.path("home.vzk")));
        EXPECT_TRUE(panel(1).starts_with("Backed up as home.vzk")) << panel(1);
        expect_project("home.tvk");
    }
    void restores() {
        platform.dialogs.expect_save("Back-up Project", platform.path("home.vzk"));
        action("mnuFile_Backup").trigger();
        items[milk].name = "Cream";
        platform.dialogs.expect_open("Restore Project", platform.path("home.vzk"));
        choose();
        expect_project("Restored.gif");
        EXPECT_EQ(items[milk].name, "Milk");
    }
    void packs() {
        platform.dialogs.expect_save("Package Project", platform.path("trip.vpk"));
        platform.boxes.expect_message("Project Package Completed.");
        choose();
        EXPECT_TRUE(platform.disk.exists(platform.path("trip.vpk")));
    }
    void unpacks() {
        platform.dialogs.expect_save("Package Project", platform.path("trip.vpk"));
        platform.boxes.expect_message("Project Package Completed.");
        action("mnuFile_Package").trigger();
        platform.dialogs.expect_open("Package Project", platform.path("trip.vpk"));
        platform.boxes.expect_message(
            "Project Package Completed.  Would you like to Open this project now?", Answer::yes);
        choose();
        expect_project("trip.tvk");
        EXPECT_EQ(items[milk].name, "Milk");
    }
    void exports_lists() {
        platform.dialogs.expect_save("Export to CSV", platform.path("stock.csv"));
        choose();
        EXPECT_TRUE(bytes_of(platform.path("stock.csv")).find("Milk") != std::string::npos);
    }
    void merges() {
        copy_of_home("other.tvk");
        platform.dialogs.expect_open("Merge Projects", platform.path("other.tvk"));
        choose();
        EXPECT_TRUE(panel(1).starts_with("Merged from other.tvk: 2 items")) << panel(1);
        EXPECT_EQ(project_modified, i16_true);
        project_modified = i16_false;
    }
    void ends_the_program() {
        choose();
        EXPECT_EQ(ends, 1);
        EXPECT_FALSE(window.isVisible());
    }
    // Each of the six places opens the project that stands there.
    void opens_a_recent_project() {
        const Texts names = {"a.tvk", "b.tvk", "c.tvk", "d.tvk", "e.tvk", "f.tvk"};
        std::vector<std::string> paths;
        for (const std::string& name : names) {
            copy_of_home(name);
            paths.push_back(platform.path(name.c_str()));
        }
        window.set_recent_files(paths);
        const int place = std::string(GetParam().name).back() - '0';
        const std::string wanted = names[static_cast<std::size_t>(place) - 1];
        EXPECT_EQ(action(GetParam().name).text().toStdString(),
                  "&" + std::to_string(place) + " " + wanted);
        choose();
        expect_project(wanted);
    }

    // --- "Project" and the toolbars

    void shows_the_planner() { brings("MealPlan"); }
    void shows_the_inventory() { brings("FoodInventory"); }
    void shows_the_recipes() { brings("Mealbuilder"); }
    void shows_the_grocery_list() { brings("ShoppingList"); }
    void shows_the_measures() { brings("wam"); }
    void shows_the_labels() { brings("BCBuild"); }
    void shows_the_reports() { brings("Reports"); }
    void shows_the_calculator() { brings("Calculator"); }
    // Opened from here it books its codes, whatever it was opened for before.
    void shows_the_scan_list() {
        brings("CS1504GETUPC");
        const QWidget& list = *window.registry().loaded("CS1504GETUPC");
        EXPECT_TRUE(list.findChild<QWidget*>("scan_toolbar_3_button")->isVisible());
    }
    void shows_the_spoken_interface() {
        brings("VII");
        for (const char* bar : {"toolbar_1", "toolbar_2"}) {
            EXPECT_FALSE(window.findChild<QToolBar*>(bar)->isVisible());
        }
        EXPECT_FALSE(platform.speech.log.entries.empty());
    }
    void shows_the_setup() {
        bool was_shown = false;
        choose([&] {
            when_modal<ProjectSetup>([&](ProjectSetup& setup) {
                was_shown = true;
                setup.reject();
            });
        });
        EXPECT_TRUE(was_shown);
    }
    // It stands there for those who look for it there, and says where it is.
    void has_no_command() {
        const Texts before = screens_open();
        choose();
        EXPECT_EQ(screens_open(), before);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_NE(action(GetParam().name).statusTip().indexOf("button of the toolbar"), -1);
        while (QApplication::activePopupWidget() != nullptr) press("Escape");
    }
    void publishes() {
        platform.boxes.expect_message(
            "The FTP account information has not been entered completely in the PROJECT SETUP.  "
            "Please check PROJECT SETUP and verify that all information has been entered.");
        choose();
        EXPECT_TRUE(platform.ftp.log.entries.empty());
        ftp_server = "ftp.example.com";
        ftp_account = "ann";
        ftp_password = "secret";
        ftp_directory = "pantry";
        choose();
        settle();
        const auto& steps = platform.ftp.log.entries;
        EXPECT_EQ(std::count_if(steps.begin(), steps.end(),
                                [](const auto& step) { return step.starts_with("put "); }),
                  8);
    }
    // Behind it the planner shows the day as it is then, and the list what has to be bought.
    void audits() {
        plan_soup(2, 14);  // yesterday, but flour
        days[2].planned_meal[1] = 0;
        days[2].planned_item[1] = flour;
        day_quantities[2].item_quantity[1] = 1;
        items[milk].stock_quantity = items[milk].restock_quantity = 20;
        end_of_step();
        open("MealPlan");
        QTest::keyClick(&part("calendar_grid"), Qt::Key_Left);
        EXPECT_EQ(column(part<QTreeView>("lv2")), Texts{"Flour"});
        const f64 before = items[flour].quantity;
        choose();
        EXPECT_EQ(days[2].audited, -1);
        EXPECT_LT(items[flour].quantity, before);
        EXPECT_EQ(items[milk].on_shopping_list, i16_true);
        EXPECT_EQ(panel(3), "Auditing...");
        EXPECT_NE(part<QLabel>("day_state").text(), "");
        project_modified = i16_false;
    }

    // --- "Window" and "Help"

    void tiles() {
        const auto [first, second] = two_screens();
        choose();
        const QRect both = first->geometry() & second->geometry();
        EXPECT_TRUE(both.isEmpty());
        EXPECT_FALSE(first->isMaximized() || second->isMaximized());
        EXPECT_TRUE(is_in_front("FoodInventory"));
    }
    void cascades() {
        const auto [first, second] = two_screens();
        choose();
        EXPECT_FALSE(first->isMaximized() || second->isMaximized());
        const QPoint step = second->pos() - first->pos();
        EXPECT_TRUE((step.x() > 0) == (step.y() > 0) && step.y() != 0);
        EXPECT_TRUE(first->geometry().intersects(second->geometry()));
        EXPECT_TRUE(is_in_front("FoodInventory"));
    }
    void gives_full_size() {
        const auto [first, second] = two_screens();
        action("mnu_tile").trigger();
        ASSERT_FALSE(first->isMaximized() || second->isMaximized());
        choose();
        EXPECT_TRUE(is_in_front("FoodInventory"));
        EXPECT_TRUE(first->isMaximized() && second->isMaximized());
    }
    void shows_the_help() {
        choose();
        EXPECT_EQ(platform.help.contents_shown, 1);
        tells_of_missing_help();
    }
    void searches_the_help() {
        choose();
        EXPECT_EQ(platform.help.searches_shown, 1);
        tells_of_missing_help();
    }
    void offers_the_lessons() {
        choose();
        auto* welcome = window.findChild<Dialog*>();
        ASSERT_NE(welcome, nullptr);
        EXPECT_TRUE(welcome->isVisible());
        EXPECT_EQ(welcome->windowTitle(), "Tavernook Tutorial");
        welcome->reject();
    }
    void tells_about_the_program() {
        choose();
        auto* about = window.findChild<About*>();
        ASSERT_NE(about, nullptr);
        EXPECT_TRUE(about->isVisible());
        about->reject();
    }

  protected:
    QMenu& menu(const char* name) { return *window.findChild<QMenu*>(QLatin1String(name)); }

    // As a user does. A modal window is answered by what `answer` has set up.
    void choose(const std::function<void()>& answer = [] {}) {
        const CommandRow& row = GetParam();
        bring_in_front();
        if (std::string(row.place).starts_with("toolbar")) return click_button(row, answer);
        const bool is_inner = std::string(row.place) == "mnuProjectTransfer";
        press(("Alt+" + letter_of(menu(is_inner ? "mnuFile" : row.place).title())).c_str());
        if (is_inner) press(letter_of(menu(row.place).title()).c_str());
        ASSERT_EQ(QApplication::activePopupWidget(), &menu(row.place));
        answer();
        press(letter_of(caption_of(row.name)).c_str());
        settle();
    }
    void click_button(const CommandRow& row, const std::function<void()>& answer) {
        QWidget* button =
            window.findChild<QToolBar*>(row.place)->widgetForAction(&action(row.name));
        ASSERT_TRUE(button->isVisible()) << row.name;
        answer();
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }
    QString caption_of(const char* name) {
        auto* inner = window.findChild<QMenu*>(QLatin1String(name));
        return inner != nullptr ? inner->title() : action(name).text();
    }

    void brings(const char* name) {
        open(std::string(name) == "wam" ? "FoodInventory" : "wam");
        EXPECT_FALSE(is_in_front(name));
        choose();
        EXPECT_TRUE(is_in_front(name)) << name;
    }
    void tells_of_missing_help() {
        platform.help.available = false;
        platform.boxes.expect_message(
            "Unable to display Help Contents. There is no Help associated with this project.");
        choose();
    }
    std::pair<QWidget*, QWidget*> two_screens() {
        QWidget* first = open("Mealbuilder").parentWidget();
        return {first, open("FoodInventory").parentWidget()};
    }
    Texts screens_open() {
        Texts open;
        for (const QMdiSubWindow* one : window.findChild<QMdiArea*>()->subWindowList()) {
            open.push_back(one->widget()->objectName().toStdString());
        }
        return open;
    }

    void expect_project(const std::string& name) {
        EXPECT_EQ(project_open, i16_true);
        EXPECT_EQ(project_name, name);
        EXPECT_EQ(shown_title().rfind("Tavernook - " + name, 0), 0u) << shown_title();
    }
    void copy_of_home(const std::string& name) {
        std::filesystem::copy_file(home, platform.path(name));
    }
    static std::string bytes_of(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

using E = EveryCommand;
constexpr const char* varies = nullptr;

// clang-format off
const CommandRow command_rows[] = {
    {"mnuFile", "mnuFile_NewProject", "&New Project", Had::always, &E::makes_a_project},
    {"mnuFile", "mnuFile_Open", "&Open Project", Had::always, &E::opens_a_project},
    {"mnuFile", "mnuFile_Save", "&Save Project", Had::with_project, &E::saves},
    {"mnuFile", "mnuFile_SaveAs", "S&ave Project As", Had::with_project, &E::saves_under_another_name},
    {"mnuFile", "mnuFile_Close", "&Close Project", Had::with_project, &E::closes_the_project},
    {"mnuFile", "-", "", Had::always, nullptr},
    {"mnuFile", "mnuProjectTransfer", "Project &Transfer", Had::always, &E::offers_the_ways_to_other_programs},
    {"mnuFile", "-", "", Had::always, nullptr},
    {"mnuFile", "mnuFile_Exit", "&Exit", Had::always, &E::ends_the_program},
    {"mnuFile", "-", "", Had::always, nullptr},
    {"mnuFile", "mnuRecentFile_1", varies, Had::always, &E::opens_a_recent_project},
    {"mnuFile", "mnuRecentFile_2", varies, Had::always, &E::opens_a_recent_project},
    {"mnuFile", "mnuRecentFile_3", varies, Had::always, &E::opens_a_recent_project},
    {"mnuFile", "mnuRecentFile_4", varies, Had::always, &E::opens_a_recent_project},
    {"mnuFile", "mnuRecentFile_5", varies, Had::always, &E::opens_a_recent_project},
    {"mnuFile", "mnuRecentFile_6", varies, Had::always, &E::opens_a_recent_project},

    {"mnuProjectTransfer", "mnuFile_Backup", "&Back-up Project...", Had::with_project, &E::backs_up},
    {"mnuProjectTransfer", "mnuFile_Restore", "&Restore Project...", Had::always, &E::restores},
    {"mnuProjectTransfer", "mnuFile_Package", "&Package Project...", Had::with_project, &E::packs},
    {"mnuProjectTransfer", "mnuFile_Unpack", "&Unpack Project...", Had::always, &E::unpacks},
    {"mnuProjectTransfer", "mnuFile_CSVExport", "&CSV Export...", Had::with_project, &E::exports_lists},
    {"mnuProjectTransfer", "mnuFile_Merge", "&Merge Project...", Had::with_project, &E::merges},

    {"mnuProject", "mnuProject_MealPlanning", "&Meal Planning", Had::with_project, &E::shows_the_planner},
    {"mnuProject", "mnuProject_FoodInventory", "&Item Inventory", Had::with_project, &E::shows_the_inventory},
    {"mnuProject", "mnuProject_MealBuilder", "&Recipe Manager", Had::with_project, &E::shows_the_recipes},
    {"mnuProject", "Project_Setup", "&Project Setup", Had::with_project, &E::shows_the_setup},
    {"mnuProject", "Project_ScanList", "&Scan List", Had::elsewhere, &E::has_no_command},
    {"mnuProject", "Project_ShoppingList", "&Grocery List", Had::with_project, &E::shows_the_grocery_list},
    {"mnuProject", "mnu_wam", "&Weights and Measures", Had::with_project, &E::shows_the_measures},
    {"mnuProject", "mnu_barcode", "&Barcode List", Had::with_project, &E::shows_the_labels},
    {"mnuProject", "Project_Calculator", "&Calculator", Had::elsewhere, &E::has_no_command},
    {"mnuProject", "Project_SendtoWeb", "Send to W&eb", Had::with_project, &E::publishes},
    {"mnuProject", "-", "", Had::always, nullptr},
    {"mnuProject", "mnu_reports", "Rep&orts", Had::with_project, &E::shows_the_reports},
    {"mnuProject", "mnu_audit", "&Audit Now", Had::with_project, &E::audits},
    {"mnuProject", "mnu_vii", "Spoken Inter&face", Had::with_project, &E::shows_the_spoken_interface},

    {"mnuWindow", "mnu_tile", "&Tile", Had::with_screen, &E::tiles},
    {"mnuWindow", "mnu_cascade", "&Cascade", Had::with_screen, &E::cascades},
    {"mnuWindow", "mnu_full", "&Full Size", Had::with_screen, &E::gives_full_size},

    {"mnuHelp", "mnu_tvkhelp", "Tavernook &Help", Had::always, &E::shows_the_help},
    {"mnuHelp", "mnu_tut", "Tavernook &Tutorial", Had::always, &E::offers_the_lessons},
    {"mnuHelp", "mnuhelp_search", "&Search Help", Had::always, &E::searches_the_help},
    {"mnuHelp", "mnu_about", "&About Tavernook", Had::always, &E::tells_about_the_program},

    {"toolbar_1", "toolbar_1_1", "New Project", Had::always, &E::makes_a_project},
    {"toolbar_1", "toolbar_1_2", "Open Project", Had::always, &E::opens_a_project},
    {"toolbar_1", "toolbar_1_3", "Save Project", Had::with_project, &E::saves},
    {"toolbar_1", "-", "", Had::always, nullptr},
    {"toolbar_1", "toolbar_1_5", "Project Setup", Had::with_project, &E::shows_the_setup},
    {"toolbar_1", "-", "", Had::always, nullptr},
    {"toolbar_1", "toolbar_1_7", "Item Inventory", Had::with_project, &E::shows_the_inventory},
    {"toolbar_1", "toolbar_1_8", "Meal Planning", Had::with_project, &E::shows_the_planner},
    {"toolbar_1", "toolbar_1_9", "Recipes", Had::with_project, &E::shows_the_recipes},
    {"toolbar_1", "-", "", Had::always, nullptr},
    {"toolbar_1", "toolbar_1_11", "Help", Had::always, &E::shows_the_help},

    {"toolbar_2", "toolbar_2_1", "Reports", Had::with_project, &E::shows_the_reports},
    {"toolbar_2", "toolbar_2_2", "Scan List", Had::with_project, &E::shows_the_scan_list},
    {"toolbar_2", "toolbar_2_3", "Grocery List", Had::with_project, &E::shows_the_grocery_list},
    {"toolbar_2", "toolbar_2_4", "Barcodes", Had::with_project, &E::shows_the_labels},
    {"toolbar_2", "toolbar_2_5", "Measures", Had::with_project, &E::shows_the_measures},
    {"toolbar_2", "toolbar_2_6", "Audit Now", Had::with_project, &E::audits},
    {"toolbar_2", "toolbar_2_7", "", Had::always, &E::shows_the_calculator},
};
// clang-format on

std::vector<CommandRow> rows_with_commands() {
    std::vector<CommandRow> rows;
    for (const CommandRow& row : command_rows) {
        if (row.does != nullptr) rows.push_back(row);
    }
    return rows;
}

std::string name_of_row(const testing::TestParamInfo<CommandRow>& row) {
    return row.param.name;
}

TEST_P(EveryCommand, DoesWhatItsRowSays) {
    bring_household();
    (this->*GetParam().does)();
}

// Without a project, and without a screen to arrange, it says what it waits for.
TEST_P(EveryCommand, IsHadWhenItsRowSays) {
    const CommandRow& row = GetParam();
    if (row.caption == varies) return;  // comes with a project of its own
    if (std::string(row.name) == "mnuProjectTransfer") return;
    QAction& command = action(row.name);
    const auto says = [&](const char* obstacle) { return command.statusTip().endsWith(obstacle); };
    EXPECT_EQ(command.isEnabled(), row.had == Had::always);
    EXPECT_EQ(says("Open a project first."), row.had == Had::with_project);
    EXPECT_EQ(says("No screen is open."), row.had == Had::with_screen);
    bring_household();
    EXPECT_EQ(command.isEnabled(), row.had == Had::always || row.had == Had::with_project);
    open("wam");
    EXPECT_EQ(command.isEnabled(), row.had != Had::elsewhere);
    EXPECT_FALSE(says("Open a project first.") || says("No screen is open."));
}

INSTANTIATE_TEST_SUITE_P(OfTheMainWindow, EveryCommand, testing::ValuesIn(rows_with_commands()),
                         name_of_row);

// --- the tables against the window
// -----------------------------------------------------------------

class CommandsInPlace : public HouseholdTest {
  protected:
    // "name|caption", "-" for a separator; a recent place without a project has no caption.
    static std::string shown(const QAction& entry, bool on_toolbar) {
        if (entry.isSeparator()) return "-";
        const QString name =
            entry.menu() != nullptr ? entry.menu()->objectName() : entry.objectName();
        if (name.startsWith("mnuRecentFile_")) return name.toStdString();
        const QString caption = on_toolbar ? entry.iconText().trimmed() : entry.text();
        return (name + '|' + caption).toStdString();
    }
    static Texts told(const char* place) {
        Texts rows;
        for (const CommandRow& row : command_rows) {
            if (std::string(row.place) != place) continue;
            const std::string name = row.name;
            rows.push_back(name == "-" || row.caption == varies ? name : name + "|" + row.caption);
        }
        return rows;
    }
    template <typename Place>
    static Texts found(const Place& place, bool on_toolbar) {
        Texts entries;
        for (const QAction* entry : place.actions()) entries.push_back(shown(*entry, on_toolbar));
        return entries;
    }
};

TEST_F(CommandsInPlace, TheMenusHoldWhatTheTableTellsInItsOrder) {
    Texts titles;
    for (const QAction* one : window.menuBar()->actions()) {
        titles.push_back(one->text().toStdString());
    }
    EXPECT_EQ(titles, (Texts{"&File", "&Project", "&Window", "&Help"}));
    for (const QMenu* menu : window.findChildren<QMenu*>()) {
        if (!menu->objectName().startsWith("mnu")) continue;
        const std::string name = menu->objectName().toStdString();
        EXPECT_EQ(found(*menu, false), told(name.c_str())) << name;
    }
}

TEST_F(CommandsInPlace, TheToolbarsHoldWhatTheTableTellsByPosition) {
    for (const QToolBar* bar : window.findChildren<QToolBar*>(Qt::FindDirectChildrenOnly)) {
        const std::string name = bar->objectName().toStdString();
        EXPECT_EQ(found(*bar, true), told(name.c_str())) << name;
        const QList<QAction*> buttons = bar->actions();
        for (qsizetype i = 0; i < buttons.size(); ++i) {
            if (buttons[i]->isSeparator()) continue;
            EXPECT_EQ(buttons[i]->objectName(),
                      bar->objectName() + QStringLiteral("_%1").arg(i + 1));
            EXPECT_TRUE(buttons[i]->toolTip().startsWith(buttons[i]->text() + '\n'));
        }
    }
}

// One by one, in each menu; a recent project has its number.
TEST_F(CommandsInPlace, EveryEntryHasALetterOfItsOwn) {
    window.set_recent_files({"/a/one.tvk", "/a/two.tvk", "/a/three.tvk"});
    QList<const QWidget*> places{window.menuBar()};
    for (const QMenu* one : window.menuBar()->findChildren<QMenu*>()) places.append(one);
    for (const QWidget* place : places) {
        std::set<std::string> letters;
        for (const QAction* entry : place->actions()) {
            if (entry->isSeparator() || !entry->isVisible()) continue;
            const std::string letter = letter_of(entry->text());
            EXPECT_FALSE(letter.empty()) << entry->text().toStdString();
            EXPECT_TRUE(letters.insert(letter).second) << entry->text().toStdString();
        }
    }
}

// Those that stand in no menu and on no toolbar would be seen here.
TEST_F(CommandsInPlace, EveryCommandOfTheWindowStandsInTheTable) {
    std::set<std::string> told_names;
    for (const CommandRow& row : command_rows) told_names.insert(row.name);
    for (const QAction* one : window.findChildren<QAction*>()) {
        const QString name = one->objectName();
        const bool is_ours =
            name.startsWith("mnu") || name.startsWith("Project_") || name.startsWith("toolbar_");
        if (!is_ours) continue;
        EXPECT_EQ(told_names.count(name.toStdString()), 1u) << name.toStdString();
    }
}

}  // namespace
}  // namespace tavernook
