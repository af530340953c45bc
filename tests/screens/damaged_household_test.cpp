// A damaged household in the real main window: opened from its file, every screen shown and
// painted, every row selected, every form accepted, every command given; then audited and saved.
// Whatever is asked meanwhile is answered; no Fault may reach Qt, no record take another's fields.
#include "support/damaged_household.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLineEdit>
#include <QPointer>
#include <QTreeView>
#include <array>
#include <exception>
#include <functional>
#include <map>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/project_save.h"
#include "screens/child_screen_fixture.h"
#include "screens/pantry/LotView.h"

namespace tavernook {
namespace {

using Names = std::vector<std::string>;

// Says yes to every question, OK to every message and a number to whoever asks for one; to who asks
// for anything else, until it is right, what is. The texts are kept, for a failure to be told by.
class AnswerAll : public Boxes {
  public:
    Answer message(std::string_view text, Buttons buttons, std::string_view,
                   DefaultButton) override {
        texts.emplace_back(text);
        return buttons == Buttons::ok ? Answer::ok : answer;
    }
    std::optional<std::string> input(std::string_view prompt, std::string_view,
                                     std::string_view) override {
        texts.emplace_back(prompt);
        const bool asks_for_logic = prompt.find("AND, OR, XOR") != std::string_view::npos;
        return asks_for_logic ? "or" : "0.5";
    }
    Answer answer = Answer::yes;
    std::vector<std::string> texts;
};

// Qt must not see an exception: what comes through an event handler ends the program.
class NoFaultPasses {
  public:
    template <typename Work>
    void operator()(const std::string& what, Work work) const {
        try {
            work();
        } catch (const std::exception& fault) {
            ADD_FAILURE() << what << ": " << fault.what() << " came through Qt.";
        }
    }
};

class DamagedHouseholdOnScreen : public ChildScreenTest {
  protected:
    static constexpr std::array screens = {"FoodInventory", "Mealbuilder", "ShoppingList",
                                           "MealPlan",      "StoresForm",  "UnitsForm",
                                           "wam",           "Reports",     "BCBuild"};

    void SetUp() override {
        register_screens(window);
        window.resize(1280, 900);
        platform.clock.time = damaged_household_today + 0.5;
        start();
        Platform parts = outside();
        parts.boxes = &answers;
        parts.replace_item = &no_replacement;
        set_platform(parts);
        const std::string home = platform.path("damaged.tvk");
        fill_damaged_household();
        set_project_path(home);
        ASSERT_TRUE(Project_Save(1));
        reset_project_tables();
        open_by_keys(home);
        ASSERT_EQ(project_open, i16_true);
        ASSERT_EQ(items[1].name, "Item 1");
    }

    // A dialog of its own is no business of these tests.
    class NoReplacement : public ports::ReplaceItem {
      public:
        void ask_replacement(i16, i16) override {}
    };

    void show(const char* name) {
        no_fault_passes(name, [&] {
            open(name);
            screen->grab();
            settle();
        });
    }

    // Selects each row of the view, inner ones too.
    void select_each_row(QAbstractItemView& view, const QModelIndex& parent = {}) {
        for (int row = 0; row < view.model()->rowCount(parent); ++row) {
            const QModelIndex index = view.model()->index(row, 0, parent);
            const std::string what = view.objectName().toStdString() + " \"" +
                                     index.data().toString().toStdString() + "\"";
            no_fault_passes(what, [&] { view.setCurrentIndex(index); });
            ++rows_selected;
            no_fault_passes(what, [&] { at_each_row(); });
            select_each_row(view, view.model()->index(row, 0, parent));
        }
    }

    void select_all_rows() {
        for (auto* view : screen->findChildren<QAbstractItemView*>()) {
            if (!view->isVisible() || view->model() == nullptr) continue;
            if (view->window() != &window) continue;
            select_each_row(*view);
            no_fault_passes("painting", [&] { view->viewport()->grab(); });
        }
    }

    // Boxes in which a trap told of a Fault. Showing what is damaged is no error.
    Names errors_told() const {
        Names errors;
        for (const std::string& text : answers.texts) {
            if (text.find("error") != std::string::npos || text.find("ERROR") != std::string::npos)
                errors.push_back(text);
        }
        return errors;
    }

    void expect_sound_records() {
        EXPECT_EQ(strangers_in_damaged_household(), Names{});
        EXPECT_EQ(std::string(items[1].name.trimmed()), "Item 1");
        EXPECT_EQ(std::string(meals[1].name.trimmed()), "Recipe 1");
    }

    void TearDown() override {
        project_modified = i16_false;
        for (const char* name : screens) {
            no_fault_passes(name, [&] {
                if (QWidget* loaded = window.registry().loaded(QLatin1String(name)))
                    loaded->close();
            });
        }
    }

    AnswerAll answers;
    NoReplacement no_replacement;
    NoFaultPasses no_fault_passes;
    std::function<void()> at_each_row = [] {};
    int rows_selected = 0;
};

TEST_F(DamagedHouseholdOnScreen, EveryScreenIsShownAndPainted) {
    for (const char* name : screens) show(name);
    EXPECT_EQ(errors_told(), Names{});
    expect_sound_records();
}

TEST_F(DamagedHouseholdOnScreen, EveryRowIsSelected) {
    const std::map<std::string, int> fewest_rows = {{"FoodInventory", 300},
                                                    {"Mealbuilder", 70},
                                                    {"ShoppingList", 300},
                                                    {"MealPlan", 0},
                                                    {"StoresForm", 5},
                                                    {"UnitsForm", 15},
                                                    {"wam", 3},
                                                    {"Reports", 300},
                                                    {"BCBuild", 0}};
    for (const char* name : screens) {
        show(name);
        rows_selected = 0;
        select_all_rows();
        EXPECT_GE(rows_selected, fewest_rows.at(name)) << name;
        expect_sound_records();
    }
    EXPECT_EQ(errors_told(), Names{});
}

TEST_F(DamagedHouseholdOnScreen, TheLotsOfEveryItemAreShown) {
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use == 0) continue;
        no_fault_passes("lots of item " + std::to_string(item), [&] {
            show_lot_view(item);
            open("LotView");
            screen->grab();
        });
    }
    expect_sound_records();
}

// Each item's form as it stands but for one box, so that it is seen to have been accepted.
TEST_F(DamagedHouseholdOnScreen, EveryFormIsAccepted) {
    show("FoodInventory");
    answers.answer = Answer::no;  // what one item refuses is left behind with it
    auto& tree = part<QTreeView>("item_tree");
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use != 1) continue;
        const std::string name = "Item " + std::to_string(item);
        const QModelIndexList found =
            tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, name.c_str(), 1,
                                Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << name;
        no_fault_passes(name, [&] {
            tree.setCurrentIndex(found.front());
            settle();  // a question waits until the mouse button is up
            EXPECT_EQ(part<QLineEdit>("item_name").text().toStdString(), name);
            part<QLineEdit>("calories").setText("12");
            part<QAction>("item_toolbar_2_1").trigger();
        });
        EXPECT_EQ(item_details[item].calories, 12)
            << name << ": " << (answers.texts.empty() ? "" : answers.texts.back());
    }
    expect_sound_records();
}

TEST_F(DamagedHouseholdOnScreen, EveryDayOfTheCalendarIsComeTo) {
    show("MealPlan");
    for (i16 day = 1; day <= day_capacity; ++day) {
        if (days[day].in_use == 0) continue;
        no_fault_passes("day " + std::to_string(day), [&] {
            press("Left");
            screen->grab();
        });
    }
    expect_sound_records();
}

// All but those that run something outside or end the screen.
bool opens_a_file(const QString& command) {
    return command == QLatin1String("recipe_picture") ||
           command == QLatin1String("list_toolbar_3") ||
           command == QLatin1String("list_toolbar_4") ||
           command == QLatin1String("item_toolbar_1_8") ||
           command == QLatin1String("item_toolbar_1_9");
}

TEST_F(DamagedHouseholdOnScreen, EveryCommandIsGiven) {
    for (const char* name : screens) {
        show(name);
        std::vector<QPointer<QAction>> actions;
        for (QAction* action : screen->findChildren<QAction*>()) {
            if (action->menu() == nullptr && !action->objectName().isEmpty()) {
                actions.emplace_back(action);
            }
        }
        for (const QPointer<QAction>& action : actions) {
            if (action.isNull() || !action->isEnabled()) continue;
            const std::string what = std::string(name) + "." + action->objectName().toStdString();
            // A file dialog and a window of its own.
            if (opens_a_file(action->objectName())) continue;
            if (action->text().contains(QLatin1String("..."))) continue;
            no_fault_passes(what, [&] { action->trigger(); });
            no_fault_passes(what, [] { settle(); });
        }
    }
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
}

TEST_F(DamagedHouseholdOnScreen, ItIsAuditedAndSavedAndOpenedAgain) {
    for (const char* name : screens) show(name);
    no_fault_passes("Audit Now", [&] { action("toolbar_2_6").trigger(); });
    no_fault_passes("painting", [&] { window.grab(); });
    EXPECT_EQ(days[1].audited, -1);
    expect_sound_records();
    press("Ctrl+S");
    EXPECT_EQ(project_modified, i16_false);
    press("Ctrl+W");
    open_by_keys(platform.path("damaged.tvk"));
    EXPECT_EQ(project_open, i16_true);
    EXPECT_EQ(days[1].audited, -1);
    expect_sound_records();
    show("FoodInventory");
}

}  // namespace
}  // namespace tavernook
