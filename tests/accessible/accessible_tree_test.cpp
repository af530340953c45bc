// Every screen as a screen reader has it: the trees are read from another process, over a bus of
// the test's own. Where a machine lacks what that takes, the tests are skipped and say so.
#include <QCoreApplication>
#include <QDBusMessage>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <memory>
#include <vector>

#include "accessible/events.h"
#include "accessible/far_tree.h"
#include "accessible/private_desktop.h"
#include "accessible/stage.h"
#include "accessible/tree_rules.h"
#include "fakes/temp_folder.h"
#include "gui_support/waiting.h"

namespace tavernook {
namespace {

struct SeenScene {
    Scene scene;
    FarPart tree;
    std::vector<FarEvent> events;  // since the scene before
};

struct Walk {
    QString missing;
    std::vector<SeenScene> scenes;
    bool ended_well = false;
};

// What differs from another scene in size alone is not read again.
bool is_told_elsewhere(const QString& scene) {
    return scene.endsWith(QLatin1String("_small")) || scene.endsWith(QLatin1String("_smallest")) ||
           scene.endsWith(QLatin1String("large_text")) || scene == QLatin1String("icons");
}

void write_down(const Walk& walk) {
    QString all;
    for (const SeenScene& seen : walk.scenes) {
        all += QLatin1String("=== ") + seen.scene.name + QLatin1Char('\n');
        for (const FarEvent& event : seen.events) {
            all += QLatin1String("heard: ") + event.kind + QLatin1Char(' ') + event.words +
                   QLatin1Char('\n');
        }
        all += written(seen.tree);
    }
    write_whole_file(TAVERNOOK_TREE_FILE, all.toStdString());
}

QStringList came_up(const std::vector<FarEvent>& events) {
    QStringList paths;
    for (const FarEvent& event : events) {
        if (event.kind == QLatin1String("showing")) paths << event.path;
    }
    return paths;
}

Walk walk_all() {
    Walk walk;
    PrivateDesktop desktop;
    walk.missing = desktop.missing();
    if (!walk.missing.isEmpty()) return walk;
    EventListener events(desktop.accessible());
    Stage stage(desktop.environment());
    QString program;
    while (const auto scene = stage.next()) {
        if (is_told_elsewhere(scene->name)) continue;
        // The first scene may stand before the program has come to the registry.
        if (program.isEmpty()) {
            comes_true([&] { return !(program = far_program(desktop.accessible())).isEmpty(); });
        }
        const FarReading reading{scene->front, scene->name.startsWith(QLatin1String("main_"))};
        SeenScene seen{*scene, read_far_tree(desktop.accessible(), program, reading), {}};
        seen.events = events.take();
        if (scene->is_popup) {
            seen.tree =
                read_far_popup(desktop.accessible(), program, came_up(seen.events), seen.tree);
        }
        walk.scenes.push_back(std::move(seen));
    }
    walk.ended_well = stage.ended_well();
    write_down(walk);
    return walk;
}

class AccessibleTree : public testing::Test {
  protected:
    void SetUp() override {
        if (!walk().missing.isEmpty()) {
            GTEST_SKIP() << "This machine lacks " << walk().missing.toStdString() << ".";
        }
    }

    // Walked once for all tests.
    static const Walk& walk() {
        static const Walk made = walk_all();
        return made;
    }
    static const std::vector<SeenScene>& scenes() { return walk().scenes; }

    // Each fault once, with the first scene that has it.
    template <typename Rule>
    static std::string faults(Rule rule) {
        QSet<QString> known;
        QString all;
        for (const SeenScene& seen : scenes()) {
            for (const QString& fault : rule(seen)) {
                if (known.contains(fault)) continue;
                known.insert(fault);
                all += QLatin1Char('\n') + seen.scene.name + QLatin1String(": ") + fault;
            }
        }
        return all.toStdString();
    }
};

TEST_F(AccessibleTree, ShowsEveryScreen) {
    QSet<QString> shown;
    for (const SeenScene& seen : scenes()) {
        EXPECT_FALSE(seen.tree.children.empty()) << seen.scene.name.toStdString();
        for (const QString& screen : seen.scene.screens) shown.insert(screen);
    }
    EXPECT_TRUE(walk().ended_well);
    QStringList missing;
    for (const char* source : {"register_screens", "tutorial"}) {
        const std::string text = read_whole_file(std::string(TAVERNOOK_SOURCE_FOLDER) +
                                                 "/src/screens/frame/" + source + ".cpp");
        static const QRegularExpression named(
            QStringLiteral("add(?:_window|<\\w+>)?\\([^\"\\n]*\"(\\w+)\""));
        auto matches = named.globalMatch(QString::fromStdString(text));
        EXPECT_TRUE(matches.hasNext()) << source;
        while (matches.hasNext()) {
            const QString name = matches.next().captured(1);
            if (!shown.contains(name)) missing << name;
        }
    }
    EXPECT_EQ(missing.join(QLatin1Char(' ')).toStdString(), "");
}

TEST_F(AccessibleTree, HasANameForWhateverTakesTheFocus) {
    EXPECT_EQ(faults([](const SeenScene& seen) { return parts_without_a_name(seen.tree); }), "");
}

TEST_F(AccessibleTree, HasNoNameInThePlaceOfAValue) {
    EXPECT_EQ(faults([](const SeenScene& seen) { return values_as_names(seen.tree); }), "");
}

TEST_F(AccessibleTree, TellsEveryRowAndTitle) {
    EXPECT_EQ(faults([](const SeenScene& seen) { return silent_rows(seen.tree); }), "");
}

TEST_F(AccessibleTree, TellsWhateverIsSeen) {
    EXPECT_EQ(faults([](const SeenScene& seen) { return unheard(seen.tree, seen.scene.seen); }),
              "");
}

const FarPart* part_with_role(const FarPart& part, FarRole role) {
    if (part.role == role && part.is(FarState::showing)) return &part;
    for (const FarPart& child : part.children) {
        if (const FarPart* found = part_with_role(child, role)) return found;
    }
    return nullptr;
}

// The line in the status bar that tells what a command did.
const FarPart* message_of(const FarPart& root) {
    const FarPart* bar = part_with_role(root, FarRole::status_bar);
    return bar == nullptr ? nullptr : part_with_role(*bar, FarRole::notification);
}

bool is_heard(const SeenScene& seen, const FarPart& part, const char* kind) {
    return std::any_of(seen.events.begin(), seen.events.end(), [&](const FarEvent& event) {
        return event.path == part.path && event.kind == QLatin1String(kind);
    });
}

TEST_F(AccessibleTree, TellsMessagesAsTheyCome) {
    int messages = 0;
    QString before;
    for (const SeenScene& seen : scenes()) {
        const FarPart* message = message_of(seen.tree);
        if (message == nullptr || message->name == before) continue;
        before = message->name;
        if (!message->name.startsWith(QLatin1String("Messages: "))) continue;
        ++messages;
        EXPECT_TRUE(is_heard(seen, *message, "accessible-name")) << seen.scene.name.toStdString();
        EXPECT_TRUE(is_heard(seen, *message, "showing")) << seen.scene.name.toStdString();
    }
    EXPECT_GE(messages, 3);
}

// What the cells of the list with that name say in the scene.
QStringList cells_in(const std::vector<SeenScene>& scenes, const char* scene, const char* list) {
    for (const SeenScene& seen : scenes) {
        if (seen.scene.name == QLatin1String(scene)) return cells(seen.tree, QLatin1String(list));
    }
    return {};
}

TEST_F(AccessibleTree, TellsSignsInWords) {
    const auto says = [](const char* scene, const char* list, const char* word) {
        const QStringList all = cells_in(scenes(), scene, list);
        return all.filter(QLatin1String(word)).size() > 0;
    };
    EXPECT_TRUE(says("FoodInventory_list_return", "Items by category", "Expired"));
    EXPECT_TRUE(says("sample_shopping_list", "Grocery list", "Expired"));
    EXPECT_TRUE(says("sample_shopping_list", "Grocery list", "Low"));
    EXPECT_TRUE(says("sample_shopping_list", "Quick Pick List", "Low"));
    EXPECT_TRUE(says("MealPlan_month", "Recommended Meals", "Expired"));
    EXPECT_TRUE(says("LotView", "Lots", "Expired"));
}

TEST_F(AccessibleTree, TellsWhatIsChecked) {
    const QStringList all = cells_in(scenes(), "Reports_past_its_date", "Columns and filter");
    EXPECT_EQ(all.filter("Item").value(0).toStdString(),
              "tree item \"Item\" described \"Checked\" focusable checked");
    EXPECT_EQ(all.filter("Store").value(0).toStdString(),
              "tree item \"Store\" described \"Not checked\" focusable");
}

}  // namespace
}  // namespace tavernook
