// The window of the help, over the help file as it is built.
#include "screens/aids/help_window.h"

#include <QAccessible>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>
#include <QWindow>
#include <map>
#include <optional>
#include <stdexcept>
#include <unistd.h>

#include "fakes/test_platform.h"
#include "gui_support/modal_driver.h"
#include "gui_support/waiting.h"
#include "gui_support/warning_guard.h"
#include "screens/aids/help_desk.h"
#include "screens/aids/help_files.h"
#include "screens/aids/help_page.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class HelpWindowTest : public testing::Test {
  protected:
    HelpWindowTest() { desk.emplace(QStringList{QString::fromStdString(files.folder())}); }

    static HelpWindow* window() {
        for (QWidget* one : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<HelpWindow*>(one)) return found;
        }
        return nullptr;
    }
    template <typename Part>
    static Part& part(const char* name) {
        if (window() == nullptr) throw std::runtime_error("no window of the help");
        return child<Part>(*window(), name);
    }
    // As the user sees them, with the keyboard in the window.
    void contents() {
        ASSERT_TRUE(desk->show_contents());
        ASSERT_TRUE(becomes_active(*window()));
    }
    void search_pane() {
        ASSERT_TRUE(desk->show_search());
        ASSERT_TRUE(becomes_active(*window()));
    }
    void page_of(const char* screen) {
        ASSERT_TRUE(desk->show_page(screen));
        ASSERT_TRUE(becomes_active(*window()));
    }

    static HelpPage& page() { return part<HelpPage>("page"); }
    static std::string shown() { return page().source().fileName().toStdString(); }

    static void press(const char* keys) {
        const QKeyCombination one = QKeySequence(QLatin1String(keys))[0];
        QWidget* target = window()->focusWidget();
        QTest::keyClick(target == nullptr ? window() : target, one.key(), one.keyboardModifiers());
    }
    static void type(const char* text) {
        for (const QChar letter : QString::fromUtf8(text)) {
            QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
            QApplication::sendEvent(window()->focusWidget(), &down);
        }
    }
    static std::string focused() { return window()->focusWidget()->objectName().toStdString(); }

    static QTreeView& filled_contents() {
        auto& tree = part<QTreeView>("contents_tree");
        EXPECT_TRUE(comes_true([&tree] { return tree.model()->rowCount() > 0; }));
        return tree;
    }
    static void search(const char* words) {
        auto& box = part<QLineEdit>("search_box");
        box.setFocus();
        box.clear();
        type(words);
    }
    static Texts found() {
        Texts titles;
        const auto& list = part<QListWidget>("search_list");
        for (int row = 0; row < list.count(); ++row) {
            titles.push_back(list.item(row)->text().section(QLatin1Char('\n'), 0, 0).toStdString());
        }
        return titles;
    }
    static bool has(const Texts& texts, const std::string& wanted) {
        return std::find(texts.begin(), texts.end(), wanted) != texts.end();
    }
    static std::string notice() { return part<QLabel>("search_notice").text().toStdString(); }

    TestPlatform platform;
    HelpFiles files;
    std::optional<HelpDesk> desk;  // goes first
};

TEST_F(HelpWindowTest, TheContentsAreATreeAndAPage) {
    EXPECT_EQ(window(), nullptr);
    contents();
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(shown(), "index.html");
    QTreeView& tree = filled_contents();
    EXPECT_EQ(focused(), "contents_tree");
    const QModelIndex first = tree.model()->index(0, 0, tree.model()->index(0, 0));
    ASSERT_TRUE(first.isValid());
    EXPECT_TRUE(tree.isExpanded(first.parent()));
    tree.setCurrentIndex(first);
    press("Return");
    EXPECT_NE(shown(), "index.html");
    EXPECT_EQ(window()->windowTitle(), first.data().toString() + " - Tavernook Help");
}

TEST_F(HelpWindowTest, AScreenHasItsPage) {
    page_of("FoodInventory");
    EXPECT_EQ(shown(), "FoodInventory.html");
    EXPECT_EQ(focused(), "page");
    QTreeView& tree = filled_contents();
    EXPECT_TRUE(comes_true([&tree] { return tree.currentIndex().isValid(); }));
    EXPECT_EQ(tree.currentIndex().data().toString(), "Item Inventory");
    EXPECT_TRUE(desk->show_page("NoSuchScreen"));
    EXPECT_EQ(shown(), "FoodInventory.html");
    page_of("keys");
    EXPECT_EQ(tree.currentIndex().data().toString(), "All keys");
    press("Alt+Left");
    EXPECT_EQ(tree.currentIndex().data().toString(), "Item Inventory");
    press("Alt+Home");  // is none of the tree
    EXPECT_FALSE(tree.currentIndex().isValid());
}

TEST_F(HelpWindowTest, APageThatIsAskedForComesWithTheContents) {
    search_pane();
    EXPECT_EQ(part<QTabWidget>("help_tabs").currentWidget(), &part<QWidget>("search_tab"));
    page_of("FoodInventory");
    EXPECT_EQ(part<QTabWidget>("help_tabs").currentWidget(), &part<QWidget>("contents_tab"));
    desk->show_contents();
    EXPECT_EQ(window()->windowTitle(), "Tavernook Help");
}

TEST_F(HelpWindowTest, AnUnknownScreenBringsUpNoWindow) {
    EXPECT_TRUE(desk->show_page("NoSuchScreen"));
    EXPECT_TRUE(desk->show_page(""));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(HelpWindowTest, BackAndForwardByKeys) {
    page_of("FoodInventory");
    page_of("help_window");
    press("Alt+Left");
    EXPECT_EQ(shown(), "FoodInventory.html");
    EXPECT_FALSE(part<QAction>("go_back").isEnabled());
    press("Alt+Right");
    EXPECT_EQ(shown(), "help_window.html");
    EXPECT_FALSE(part<QAction>("go_forward").isEnabled());
    press("Alt+Home");
    EXPECT_EQ(shown(), "index.html");
}

TEST_F(HelpWindowTest, ALinkLeadsToAPageAndNowhereElse) {
    contents();
    for (const char* outside : {"https://example.org/", "file:///etc/passwd", "none.html"}) {
        page().setSource(QUrl(QLatin1String(outside)));
        EXPECT_EQ(shown(), "index.html") << outside;
    }
    page().setFocus();
    press("Tab");  // the first link
    press("Return");
    EXPECT_NE(shown(), "index.html");
}

TEST_F(HelpWindowTest, TheIndexFinds) {
    contents();
    press("Alt+I");
    ASSERT_TRUE(part<QWidget>("index_box").isVisible());
    part<QLineEdit>("index_box").setFocus();
    auto& list = part<QListView>("index_list");
    ASSERT_TRUE(comes_true([&list] { return list.model()->rowCount() > 1; }));
    type("ITEMS");
    ASSERT_GE(list.model()->rowCount(), 1);
    press("Return");
    EXPECT_EQ(shown(), "FoodInventory.html");
    press("Down");
    EXPECT_EQ(focused(), "index_list");
    EXPECT_TRUE(list.currentIndex().isValid());
    part<QLineEdit>("index_box").setText("xyzzy");
    EXPECT_EQ(list.model()->rowCount(), 0);
    EXPECT_EQ(list.accessibleDescription(), "The index has no such word.");
}

TEST_F(HelpWindowTest, SearchFindsWordsWithUmlautsHoweverTheyAreTyped) {
    search_pane();
    EXPECT_EQ(focused(), "search_box");
    for (const char* words : {"Müsli", "müsli", "MÜSLI", "musli", "müs"}) {
        search(words);
        EXPECT_TRUE(has(found(), "Item Inventory")) << words;
    }
    press("Return");
    EXPECT_EQ(page().textCursor().selectedText().toLower(), QString::fromUtf8("müs"));
    search("üsli");  // in the middle of a word
    EXPECT_EQ(found(), Texts{});
}

TEST_F(HelpWindowTest, SearchWantsAllTheWords) {
    search_pane();
    search("inventory");
    const Texts all = found();
    ASSERT_GE(all.size(), 1U);
    EXPECT_EQ(all.front(), "Item Inventory");  // as its title has the word
    search("  inventory   müsli ");
    const Texts both = found();
    EXPECT_LE(both.size(), all.size());
    EXPECT_TRUE(has(both, "Item Inventory"));
    EXPECT_EQ(notice(), both.size() == 1 ? "1 page" : std::to_string(both.size()) + " pages");
    press("Down");
    EXPECT_EQ(focused(), "search_list");
    press("Return");
    EXPECT_NE(shown(), "index.html");
}

TEST_F(HelpWindowTest, NothingFoundIsSaidInOneSentence) {
    search_pane();
    EXPECT_EQ(notice(), "Pages that have all the words are listed here.");
    search("inventory xyzzy");
    EXPECT_EQ(found(), Texts{});
    EXPECT_EQ(notice(), "No page of the help has \"inventory xyzzy\" in it.");
    press("Return");  // leads nowhere
    EXPECT_EQ(shown(), "index.html");
    search("");
    EXPECT_EQ(notice(), "Pages that have all the words are listed here.");
}

TEST_F(HelpWindowTest, TheTextGrowsAndShrinksByKeys) {
    page_of("FoodInventory");
    const qreal normal = page().font().pointSizeF();
    press("Ctrl++");
    press("Ctrl+=");
    EXPECT_EQ(page().font().pointSizeF(), normal + 2);
    press("Ctrl+-");
    EXPECT_EQ(page().font().pointSizeF(), normal + 1);
    press("Ctrl+0");
    EXPECT_EQ(page().font().pointSizeF(), normal);
    for (int time = 0; time < 50; ++time) press("Ctrl++");
    EXPECT_GE(page().font().pointSizeF(), 2 * normal);
    for (int time = 0; time < 80; ++time) press("Ctrl+-");
    EXPECT_GE(page().font().pointSizeF(), 5);
}

TEST_F(HelpWindowTest, FindInPageGoesAroundTheEnd) {
    page_of("FoodInventory");
    press("Ctrl+F");
    EXPECT_EQ(focused(), "find_box");
    type("items");
    press("Return");
    const int first = page().textCursor().position();
    EXPECT_GT(first, 0);
    press("Shift+F3");
    press("F3");
    EXPECT_EQ(page().textCursor().position(), first);
    type("xyzzy");
    press("F3");
    EXPECT_EQ(part<QLabel>("find_notice").text(), "This page does not have it.");
    EXPECT_EQ(page().textCursor().position(), first);
}

TEST_F(HelpWindowTest, KeysGoFromPartToPartAndCloseWhatWasOpenedLast) {
    page_of("FoodInventory");
    press("F6");
    EXPECT_EQ(focused(), "contents_tree");
    press("F6");
    EXPECT_EQ(focused(), "page");
    press("Ctrl+F");
    press("F6");
    EXPECT_EQ(focused(), "contents_tree");
    press("F6");
    press("F6");
    EXPECT_EQ(focused(), "find_box");
    press("Escape");
    EXPECT_EQ(focused(), "page");
    EXPECT_TRUE(window()->isVisible());
    press("Escape");
    EXPECT_FALSE(window()->isVisible());
}

TEST_F(HelpWindowTest, ItsPlaceAndTextSizeComeBack) {
    contents();
    window()->setGeometry(90, 70, 640, 480);
    press("Ctrl++");
    press("Escape");
    desk.emplace(QStringList{QString::fromStdString(files.folder())});
    contents();
    EXPECT_EQ(window()->geometry(), QRect(90, 70, 640, 480));
    EXPECT_EQ(page().text_step(), 1);
    desk.reset();  // still open, as when the program ends
    EXPECT_NE(platform.settings.get("Help", "Place"), "");
}

TEST_F(HelpWindowTest, ItIsReadBesideADialogThatIsModal) {
    contents();
    EXPECT_FALSE(window()->isModal());
    EXPECT_EQ(window()->windowHandle()->transientParent(), nullptr);
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    page_of("FoodInventory");
    EXPECT_EQ(window()->windowHandle()->transientParent(), dialog.windowHandle());
    dialog.close();
    contents();
    EXPECT_EQ(window()->windowHandle()->transientParent(), nullptr);
}

TEST_F(HelpWindowTest, EveryPartHasAName) {
    search_pane();
    for (const QWidget* one : window()->findChildren<QWidget*>()) {
        const bool wanted = (one->focusPolicy() & Qt::TabFocus) != 0 &&
                            !one->objectName().startsWith("qt_") && !one->objectName().isEmpty();
        if (!wanted) continue;
        QAccessibleInterface* heard =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(one));
        EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty()) << one->objectName().toStdString();
    }
}

// --- the files -----------------------------------------------------------------------------------

TEST_F(HelpWindowTest, MissingFilesAreNoHelp) {
    for (const char* name : {"tvk.hlp", "tvk.qhc"}) {
        const std::string aside = files.path("aside");
        fs::rename(files.path(name), aside);
        EXPECT_FALSE(desk->show_contents()) << name;
        EXPECT_FALSE(desk->show_search()) << name;
        EXPECT_FALSE(desk->show_page("FoodInventory")) << name;
        fs::rename(aside, files.path(name));
    }
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(desk->show_contents());  // once they are there
}

TEST_F(HelpWindowTest, DamagedFilesAreNoHelp) {
    for (const char* name : {"tvk.hlp", "tvk.qhc"}) {
        const std::string whole = read_whole_file(files.path(name));
        for (const std::string& damaged :
             {std::string(), whole.substr(0, whole.size() / 2), std::string(5000, '\xa5')}) {
            write_whole_file(files.path(name), damaged);
            EXPECT_FALSE(desk->show_contents()) << name << damaged.size();
            EXPECT_EQ(read_whole_file(files.path(name)), damaged);
        }
        write_whole_file(files.path(name), whole);
    }
    EXPECT_EQ(window(), nullptr);
}

// Another account than root, to whom a folder can be closed.
class AsNobody {
  public:
    AsNobody() {
        if (::geteuid() == 0) changed_ = ::seteuid(nobody) == 0;
    }
    ~AsNobody() {
        if (changed_ && ::seteuid(0) != 0) ADD_FAILURE() << "not root again";
    }

  private:
    static constexpr uid_t nobody = 65534;
    bool changed_ = false;
};

std::map<std::string, std::string> everything_in(const std::string& folder) {
    std::map<std::string, std::string> found;
    for (const auto& one : fs::directory_iterator(folder)) {
        found[one.path().filename()] = read_whole_file(one.path());
    }
    return found;
}

TEST_F(HelpWindowTest, AClosedFolderIsReadAndNotWritten) {
    const auto before = everything_in(files.folder());
    constexpr auto all_read =
        fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    constexpr auto all_enter =
        fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    for (const char* name : {"tvk.hlp", "tvk.qhc"}) fs::permissions(files.path(name), all_read);
    fs::permissions(files.folder(), all_read | all_enter);
    fs::permissions(files.above(), all_read | all_enter);
    {
        const AsNobody nobody;
        ASSERT_NE(::eaccess(files.folder().c_str(), W_OK), 0);
        search_pane();
        search("müsli");
        EXPECT_TRUE(has(found(), "Item Inventory"));
        filled_contents();
        desk.reset();
    }
    fs::permissions(files.above(), fs::perms::owner_all);
    fs::permissions(files.folder(), fs::perms::owner_all);
    EXPECT_EQ(everything_in(files.folder()), before);
}

}  // namespace
}  // namespace tavernook
