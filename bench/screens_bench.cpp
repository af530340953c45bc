// What the user waits for on the shopping list, in the item inventory and in the recipe manager of
// a full project, drawing included: real screens in the real main window. Each answer has 100 ms, a
// page of a list 16 ms. The yardstick is a plain list with as many constant rows, or the text
// alone in a plain editor. The planner has a program of its own.
#include <QApplication>
#include <QLineEdit>
#include <QTextEdit>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <string>

#include "constant_list.h"
#include "cookbook.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "painting.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "screens/frame/Main.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/register_screens.h"
#include "screens/grocery/ShoppingList.h"
#include "screens/parts/catagory_tree_model.h"
#include "screens/parts/screen_switch.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

constexpr int pairs = 21;

// A full project with every item on the list, on the real disk, without the records that the fakes
// keep.
class FullHousehold {
  public:
    explicit FullHousehold(const char* screen_name) {
        fill_full_project();
        for (i16 item = 1; item <= item_capacity; ++item) {
            items[item].on_shopping_list = i16_true;
            items[item].shopping_quantity = 1 + item % 40 / 4.0;
        }
        set_platform({.clock = &platform_.clock,
                      .boxes = &platform_.boxes,
                      .file_dialogs = &platform_.dialogs,
                      .files = &platform_.disk,
                      .settings_store = &platform_.settings,
                      .file_associations = &platform_.associations,
                      .project_lock = &platform_.lock,
                      .system_info = &platform_.system,
                      .help_viewer = &platform_.help,
                      .save_progress = &window_.progress(),
                      .main = &window_,
                      .screens = &window_.registry(),
                      .replace_item = &platform_.replace_item});
        register_screens(window_);
        window_.load("");
        window_.resize(1280, 900);
        window_.show();
        project_path = platform_.path("bench.tvk");
        project_name = "bench.tvk";
        project_open = i16_true;
        window_.enable_project_menus(true);
        screen_ = show_screen(QLatin1String(screen_name));
        if (screen_ == nullptr) std::abort();
        paint();
    }
    ~FullHousehold() { project_modified = i16_false; }
    FullHousehold(const FullHousehold&) = delete;
    FullHousehold& operator=(const FullHousehold&) = delete;

    template <typename Screen>
    Screen& screen() {
        return dynamic_cast<Screen&>(*screen_);
    }
    template <typename Part>
    Part& part(const char* name) {
        auto* found = screen_->findChild<Part*>(QLatin1String(name));
        if (found == nullptr) std::abort();
        return *found;
    }

    void paint() { paint_changes(window_); }

  private:
    TestPlatform platform_;
    Main window_;
    QWidget* screen_ = nullptr;
};

void nothing() {}

// --- the shopping list --------------------------------------------------------------------------

class FullList : public FullHousehold {
  public:
    FullList() : FullHousehold("ShoppingList"), plain(list, list.model()->rowCount()) {
        if (list.model()->rowCount() != item_capacity) std::abort();
    }

    QTreeView& list = part<QTreeView>("shopping_list");
    ConstantList plain;
};

void list_filled_again(benchmark::State& state) {
    FullList full;
    measure_pairs(
        state, nothing,
        [&] {
            full.screen<ShoppingList>().populate_list();
            full.paint();
        },
        [&] { full.plain.fill(); });
}

// From nothing to 10,000 rows.
void list_filled_anew(benchmark::State& state) {
    FullList full;
    const auto empty = [&full](i16 flag) {
        for (i16 item = 1; item <= item_capacity; ++item) items[item].on_shopping_list = flag;
        full.screen<ShoppingList>().populate_list();
        full.paint();
    };
    measure_pairs(
        state, [&] { empty(i16_false); }, [&] { empty(i16_true); }, [&] { full.plain.fill(); });
}

void list_page(benchmark::State& state) {
    FullList full;
    double worst = 0;
    measure_pairs(
        state, nothing,
        [&] {
            const double seconds = seconds_of([&] { ConstantList::turn_page_of(full.list); });
            worst = std::max(worst, seconds);
        },
        [&] { full.plain.turn_page(); });
    state.counters["worst_ms"] = worst * 1e3;
}

// By the column of the number given; the yardstick fills 10,000 plain rows.
void list_sorted(benchmark::State& state) {
    FullList full;
    const int column = static_cast<int>(state.range(0));
    auto order = Qt::AscendingOrder;
    measure_pairs(
        state, nothing,
        [&] {
            order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
            full.list.sortByColumn(column, order);
            full.paint();
        },
        [&] { full.plain.fill(); });
}

// As a scan does: one more of something, and the whole list with its totals. The list is sorted.
void item_added_to_sorted_list(benchmark::State& state) {
    FullList full;
    full.list.sortByColumn(2, Qt::AscendingOrder);
    i16 item = 0;
    measure_pairs(
        state, nothing,
        [&] {
            item = static_cast<i16>(item % item_capacity + 1);
            items[item].shopping_quantity += 1;
            full.screen<ShoppingList>().populate_list();
            full.paint();
        },
        [&] { full.plain.fill(); });
}

// A letter more or less in a find or filter box, with the list or tree painted.
void type_in_turn(benchmark::State& state, FullHousehold& full, const char* box,
                  ConstantList& plain, const QString& narrow) {
    auto& field = full.part<QLineEdit>(box);
    bool narrowed = false;
    measure_pairs(
        state, nothing,
        [&] {
            narrowed = !narrowed;
            field.setText(narrowed ? narrow : narrow.chopped(1));
            full.paint();
        },
        [&] { plain.fill(); });
}

void quick_pick_found(benchmark::State& state) {
    FullHousehold full("ShoppingList");
    ConstantList plain(full.part<QTreeView>("quick_pick_list"), item_capacity);
    type_in_turn(state, full, "find_box", plain, QStringLiteral("number 1"));
}

// --- trees
// ----------------------------------------------------------------------------------------

void item_tree_filtered(benchmark::State& state) {
    FullHousehold full("FoodInventory");
    ConstantList plain(full.part<QTreeView>("item_tree"), item_capacity);
    type_in_turn(state, full, "filter", plain, QStringLiteral("number 1"));
}

void recipe_tree_filtered(benchmark::State& state) {
    FullHousehold full("Mealbuilder");
    ConstantList plain(full.part<QTreeView>("recipe_tree"), meal_capacity);
    type_in_turn(state, full, "filter", plain, QStringLiteral("recipe 1"));
}

void item_tree_page(benchmark::State& state) {
    FullHousehold full("FoodInventory");
    auto& tree = full.part<QTreeView>("item_tree");
    tree.expandAll();
    full.paint();
    ConstantList plain(tree, item_capacity);
    measure_pairs(
        state, nothing, [&] { ConstantList::turn_page_of(tree); }, [&] { plain.turn_page(); });
}

// --- a recipe with a long text
// ----------------------------------------------------------------------

// Two recipes of 50 ingredients with a text of about so many bytes, chosen in turn.
void recipe_chosen(benchmark::State& state) {
    FullHousehold full("Mealbuilder");
    const Cookbook book(static_cast<std::size_t>(state.range(0)));
    for (const i16 recipe : {i16{1}, i16{2}}) store_document(recipe, book.rtf_bytes);
    auto& tree = full.part<QTreeView>("recipe_tree");
    tree.expandAll();
    const auto& model = static_cast<const CatagoryTreeModel&>(*tree.model());
    QTextEdit plain;
    plain.resize(full.part<QWidget>("recipe_pane").size());
    plain.show();
    int turn = 0;
    measure_pairs(
        state, nothing,
        [&] {
            tree.setCurrentIndex(model.index_of(QStringLiteral("%1c").arg(1 + ++turn % 2)));
            full.paint();
        },
        [&] {
            plain.setHtml(book.html);
            paint_changes(plain);
        });
    auto* shown = full.part<QWidget>("recipe_pane").findChild<QTextEdit*>();
    if (shown->document()->blockCount() != book.document.blockCount()) std::abort();
}

#define SCREENS_BENCHMARK(name) \
    BENCHMARK(name)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond)
SCREENS_BENCHMARK(list_filled_again);
SCREENS_BENCHMARK(list_filled_anew);
BENCHMARK(list_page)->UseManualTime()->Iterations(400)->Unit(benchmark::kMillisecond);
SCREENS_BENCHMARK(list_sorted)->DenseRange(0, 7);
SCREENS_BENCHMARK(item_added_to_sorted_list);
SCREENS_BENCHMARK(quick_pick_found);
SCREENS_BENCHMARK(item_tree_filtered);
BENCHMARK(item_tree_page)->UseManualTime()->Iterations(400)->Unit(benchmark::kMillisecond);
SCREENS_BENCHMARK(recipe_tree_filtered);
SCREENS_BENCHMARK(recipe_chosen)->Arg(100'000);

}  // namespace
}  // namespace tavernook

int main(int argc, char** argv) {
    const bool display =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!display) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
