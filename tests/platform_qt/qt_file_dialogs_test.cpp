#include "platform_qt/qt_file_dialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "basics/fault.h"
#include "fakes/temp_folder.h"
#include "gui_support/modal_driver.h"
#include "platform_qt/qt_text.h"

namespace tavernook {
namespace {

const std::string project_filter = "Tavernook Files (*.tvk)|*.tvk";

QLineEdit& name_field(const QFileDialog& dialog) {
    return child<QLineEdit>(dialog, "fileNameEdit");
}

void press_button(const QFileDialog& dialog, QDialogButtonBox::StandardButton button) {
    child<QDialogButtonBox>(dialog, "buttonBox").button(button)->click();
}

void enter_name(const QFileDialog& dialog, const QString& name,
                QDialogButtonBox::StandardButton button = QDialogButtonBox::Save) {
    name_field(dialog).setText(name);
    press_button(dialog, button);
}

void answer_question(QMessageBox::StandardButton answer) {
    when_modal<QMessageBox>([=](QMessageBox& box) {
        EXPECT_TRUE(box.text().contains(QStringLiteral("home.tvk"))) << box.text().toStdString();
        box.button(answer)->click();
    });
}

int fault_of(const std::function<void()>& call) {
    try {
        call();
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

class FileDialogsTest : public testing::Test {
  protected:
    FileDialogRequest request() const { return {"Projects", project_filter, folder.path("*.tvk")}; }
    std::string save_as(const QString& name) {
        when_modal<QFileDialog>([=](QFileDialog& dialog) { enter_name(dialog, name); });
        return dialogs.save_file(request());
    }

    TempFolder folder;
    QtFileDialogs dialogs;
};

TEST(FileFilters, PairsBecomeDescriptionsWithPatterns) {
    const auto filters =
        file_filters("Tavernook Files (*.tvk)|*.tvk|Pictures|*.bmp;*.jpg|All Files (*.*)|*.*");
    ASSERT_EQ(filters.size(), 3u);
    EXPECT_EQ(name_filter(filters[0], false), QStringLiteral("Tavernook Files (*.tvk)"));
    EXPECT_EQ(name_filter(filters[1], false), QStringLiteral("Pictures (*.bmp *.jpg)"));
    EXPECT_EQ(name_filter(filters[2], false), QStringLiteral("All Files (*)"));
    EXPECT_EQ(suffix_of(filters[0]), QStringLiteral("tvk"));
    EXPECT_EQ(suffix_of(filters[1]), QStringLiteral("bmp"));
    EXPECT_EQ(suffix_of(filters[2]), QString());
}

TEST(FileFilters, CapitalsAreAddedWhereTheyCount) {
    const auto filters = file_filters("Tavernook Files (*.tvk)|*.tvk|All|*");
    EXPECT_EQ(name_filter(filters[0], true), QStringLiteral("Tavernook Files (*.tvk *.TVK)"));
    EXPECT_EQ(name_filter(filters[1], true), QStringLiteral("All (*)"));
}

TEST(FileFilters, HalfPairsAndEmptyOnes) {
    EXPECT_TRUE(file_filters("").empty());
    EXPECT_TRUE(file_filters("Tavernook Files").empty());
    EXPECT_EQ(file_filters("Projects|*.tvk|Left over").size(), 1u);
    EXPECT_EQ(name_filter(file_filters("Anything|").at(0), false), QStringLiteral("Anything (*)"));
    EXPECT_EQ(suffix_of(file_filters("Pages|*.htm*").at(0)), QString());
}

TEST(WithSuffix, OnlyANameWithoutOneGetsIt) {
    const QString tvk = QStringLiteral("tvk");
    EXPECT_EQ(with_suffix(QStringLiteral("/a.b/home"), tvk), QStringLiteral("/a.b/home.tvk"));
    EXPECT_EQ(with_suffix(QStringLiteral("/a/home.TVK"), tvk), QStringLiteral("/a/home.TVK"));
    EXPECT_EQ(with_suffix(QStringLiteral("/a/home.old"), tvk), QStringLiteral("/a/home.old"));
    EXPECT_EQ(with_suffix(QStringLiteral("/a/home"), QString()), QStringLiteral("/a/home"));
}

TEST(DialogStartTest, APatternIsNoName) {
    EXPECT_EQ(dialog_start(QStringLiteral("/usr/*.tvk")),
              (DialogStart{QStringLiteral("/usr"), QString()}));
    EXPECT_EQ(dialog_start(QStringLiteral("/usr/home?.tvk")),
              (DialogStart{QStringLiteral("/usr"), QString()}));
    EXPECT_EQ(dialog_start(QStringLiteral("/usr/home.tvk")),
              (DialogStart{QStringLiteral("/usr"), QStringLiteral("home.tvk")}));
    EXPECT_EQ(dialog_start(QStringLiteral("/usr/")),
              (DialogStart{QStringLiteral("/usr"), QString()}));
}

TEST(DialogStartTest, AMissingFolderGivesWayToTheOneAbove) {
    EXPECT_EQ(dialog_start(QStringLiteral("/usr/no such/folder/*.tvk")),
              (DialogStart{QStringLiteral("/usr"), QString()}));
    EXPECT_EQ(dialog_start(QStringLiteral("/no such/folder/home.tvk")),
              (DialogStart{QStringLiteral("/"), QStringLiteral("home.tvk")}));
}

TEST_F(FileDialogsTest, CancelIsAFaultOfItsOwn) {
    for (const bool save : {false, true}) {
        when_modal<QFileDialog>(
            [](QFileDialog& dialog) { press_button(dialog, QDialogButtonBox::Cancel); });
        EXPECT_EQ(
            fault_of([&] { save ? dialogs.save_file(request()) : dialogs.open_file(request()); }),
            32755);
    }
}

TEST_F(FileDialogsTest, TheEndOfTheWindowUnderItIsCancel) {
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    QApplication::processEvents();
    when_modal<QFileDialog>([&](QFileDialog&) { window.reset(); });
    EXPECT_EQ(fault_of([&] { dialogs.save_file(request()); }), 32755);
}

TEST_F(FileDialogsTest, OpenGivesTheFullPathOfAnExistingFile) {
    const std::string path = folder.path(
        "K\xC3\xBC"
        "che.TVK");
    write_whole_file(path, "x");
    when_modal<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), QStringLiteral("file_dialog"));
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Projects"));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("Tavernook Files (*.tvk)")});
        enter_name(dialog, QString::fromUtf16(u"K\u00FCche.TVK"), QDialogButtonBox::Open);
    });
    EXPECT_EQ(dialogs.open_file(request()), path);
}

TEST_F(FileDialogsTest, OpenDoesNotTakeAMissingFile) {
    when_modal<QFileDialog>([&](QFileDialog& dialog) {
        enter_name(dialog, QStringLiteral("missing.tvk"), QDialogButtonBox::Open);
        EXPECT_TRUE(dialog.isVisible());
        press_button(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(fault_of([&] { dialogs.open_file(request()); }), 32755);
}

TEST_F(FileDialogsTest, TheFolderIsShownAndThePatternIsNoName) {
    when_modal<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(qstring_to_path(dialog.directory().path()), folder.path());
        EXPECT_EQ(name_field(dialog).text(), QString());
        press_button(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(fault_of([&] { dialogs.save_file(request()); }), 32755);
}

TEST_F(FileDialogsTest, AnInitialNameIsOffered) {
    when_modal<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(name_field(dialog).text(), QStringLiteral("Our home.tvk"));
        press_button(dialog, QDialogButtonBox::Save);
    });
    EXPECT_EQ(dialogs.save_file({"Save", project_filter, folder.path("Our home.tvk")}),
              folder.path("Our home.tvk"));
}

TEST_F(FileDialogsTest, TheSuffixIsAddedToANameWithoutOne) {
    EXPECT_EQ(save_as(QStringLiteral("home")), folder.path("home.tvk"));
    EXPECT_EQ(save_as(QStringLiteral("home.TVK")), folder.path("home.TVK"));
    EXPECT_EQ(save_as(QStringLiteral("home.old")), folder.path("home.old"));
}

TEST_F(FileDialogsTest, TheSuffixFollowsTheChosenType) {
    when_modal<QFileDialog>([](QFileDialog& dialog) {
        auto& types = child<QComboBox>(dialog, "fileTypeCombo");
        types.setCurrentIndex(1);
        Q_EMIT types.textActivated(types.currentText());
        Q_EMIT types.activated(1);
        enter_name(dialog, QStringLiteral("list"));
    });
    EXPECT_EQ(dialogs.save_file({"Save", "Pages|*.htm|Texts|*.txt", folder.path("*.htm")}),
              folder.path("list.txt"));
}

TEST_F(FileDialogsTest, ReplacingAFileIsAskedForItsFullName) {
    write_whole_file(folder.path("home.tvk"), "x");
    when_modal<QFileDialog>([](QFileDialog& dialog) {
        answer_question(QMessageBox::Yes);
        enter_name(dialog, QStringLiteral("home"));
    });
    EXPECT_EQ(dialogs.save_file(request()), folder.path("home.tvk"));
    EXPECT_EQ(read_whole_file(folder.path("home.tvk")), "x");
}

TEST_F(FileDialogsTest, AfterNoAnotherNameMayBeGiven) {
    write_whole_file(folder.path("home.tvk"), "x");
    when_modal<QFileDialog>([](QFileDialog& dialog) {
        answer_question(QMessageBox::No);
        enter_name(dialog, QStringLiteral("home"));
        EXPECT_TRUE(dialog.isVisible());
        // The dialog forgets the file that it marked in the list only for a user who types.
        dialog.activateWindow();
        QApplication::processEvents();
        name_field(dialog).setFocus();
        ASSERT_TRUE(name_field(dialog).hasFocus());
        enter_name(dialog, QStringLiteral("other"));
    });
    EXPECT_EQ(dialogs.save_file(request()), folder.path("other.tvk"));
}

TEST_F(FileDialogsTest, WithoutAFilterEveryNameStays) {
    when_modal<QFileDialog>(
        [](QFileDialog& dialog) { enter_name(dialog, QStringLiteral("home")); });
    EXPECT_EQ(dialogs.save_file({"Save", "", folder.path("*")}), folder.path("home"));
}

}  // namespace
}  // namespace tavernook
