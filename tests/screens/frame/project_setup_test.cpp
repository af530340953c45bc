#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QToolBar>
#include <QTreeView>
#include <QWheelEvent>

#include "gui_support/modal_driver.h"
#include "platform_qt/shipped_page_files.h"
#include "reports/pages/shipped_pages.h"
#include "reports/preview.h"
#include "screens/child_screen_fixture.h"
#include "screens/frame/ProjectSetup.h"

namespace tavernook {
namespace {

class ProjectSetupTest : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        project_modified = i16_false;
    }

    // Opens the screen as the user does, by its menu entry, and lets `act` work on it.
    template <typename Act>
    void in_setup(Act act) {
        bool came = false;
        when_modal<ProjectSetup>([&](ProjectSetup& setup) {
            came = true;
            act(setup);
            if (setup.isVisible()) setup.reject();
        });
        action("Project_Setup").trigger();
        EXPECT_TRUE(came);
    }

    static QComboBox& list(ProjectSetup& setup, const char* name) {
        return child<QComboBox>(setup, name);
    }
    static std::string shown(ProjectSetup& setup, const char* name) {
        return list(setup, name).currentText().toStdString();
    }
    static void choose_text(ProjectSetup& setup, const char* name, const char* text) {
        list(setup, name).setCurrentIndex(list(setup, name).findText(QString::fromUtf8(text)));
    }
    static void write(ProjectSetup& setup, const char* name, const char* text) {
        auto& line = child<QLineEdit>(setup, name);
        line.selectAll();
        QTest::keyClicks(&line, QLatin1String(text));
    }
    static void press_button(ProjectSetup& setup, const char* name) {
        QTest::mouseClick(&child<QPushButton>(setup, name), Qt::LeftButton);
    }
    static void tick_box(ProjectSetup& setup, const char* name) {
        auto& box = child<QCheckBox>(setup, name);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Space);
    }
};

TEST_F(ProjectSetupTest, BearsItsTexts) {
    in_setup([](ProjectSetup& setup) {
        EXPECT_EQ(setup.windowTitle(), "Project Setup");
        for (const auto& [name, title] : {std::pair{"auditing_group", "Auditing Setup"},
                                          {"general_group", "General"},
                                          {"scanner_group", "Barcode Scanner Selection"},
                                          {"ftp_group", "FTP Export"}}) {
            EXPECT_EQ(child<QGroupBox>(setup, name).title(), title);
        }
        for (const auto& [name, text] :
             {std::pair{"audit_time_label", "Daily Inventory Update Time:"},
              {"days_ahead_label", "Audit to future date:        (0 = Audit to today)"},
              {"days_from_now", "days from now"},
              {"warning_label", "Expiration Warning:"},
              {"tax_label", "Sales Tax:"},
              {"currency_label", "Currency Symbol:"},
              {"font_label", "Font Size:"},
              {"scanner_label", "Scanner Type:"},
              {"port_label", "Comm Port:"},
              {"account_label", "Your Account name:"},
              {"password_label", "Your account password:"},
              {"directory_label", "FTP server directory:"}}) {
            EXPECT_EQ(child<QLabel>(setup, name).text().remove('&'), text);
        }
        for (const auto& [name, text] :
             {std::pair{"audit_on_startup", "Audit on Start-up"},
              {"save_after_audit", "Auto Save after Audit"},
              {"show_toolbar_text", "Show Toolbar Text"},
              {"ftp_send_after_audit", "Automatically send after audit?"}}) {
            EXPECT_EQ(child<QCheckBox>(setup, name).text().remove('&'), text);
        }
    });
}

TEST_F(ProjectSetupTest, AProjectWithoutAnAuditHourShowsElevenAndStoresTwentyThree) {
    audit_hour = 0;
    in_setup([](ProjectSetup& setup) {
        EXPECT_EQ(shown(setup, "hour_list"), "11");
        EXPECT_EQ(shown(setup, "half_list"), "PM");
        press_button(setup, "ok_button");
    });
    EXPECT_EQ(audit_hour, 23);
}

TEST_F(ProjectSetupTest, ChoosingTwelveInTheAfternoonStoresTwentyFour) {
    audit_hour = 9;
    in_setup([](ProjectSetup& setup) {
        choose_text(setup, "hour_list", "12");
        choose_text(setup, "half_list", "PM");
        press_button(setup, "ok_button");
    });
    EXPECT_EQ(audit_hour, 24);
    in_setup([](ProjectSetup& setup) {
        EXPECT_EQ(shown(setup, "hour_list"), "12");
        EXPECT_EQ(shown(setup, "half_list"), "PM");
    });
}

TEST_F(ProjectSetupTest, TwelveInTheMorningIsStoredAsTwelveAndComesBackAsAfternoon) {
    audit_hour = 9;
    in_setup([](ProjectSetup& setup) {
        choose_text(setup, "hour_list", "12");
        press_button(setup, "ok_button");
    });
    EXPECT_EQ(audit_hour, 12);
    in_setup([](ProjectSetup& setup) { EXPECT_EQ(shown(setup, "half_list"), "PM"); });
}

TEST_F(ProjectSetupTest, CancelKeepsWhatWasWrittenAtOnceAndNothingElse) {
    sales_tax = 5;
    in_setup([](ProjectSetup& setup) {
        tick_box(setup, "save_after_audit");
        write(setup, "sales_tax", "9");
        press_button(setup, "cancel_button");
    });
    EXPECT_EQ(save_after_audit, 1);
    EXPECT_EQ(sales_tax, 5);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ProjectSetupTest, CancelWithNothingTouchedLeavesTheProjectUnmodified) {
    in_setup([](ProjectSetup& setup) { press_button(setup, "cancel_button"); });
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ProjectSetupTest, AnUnknownScannerSelectsNothing) {
    scanner_type = 4;
    in_setup([](ProjectSetup& setup) {
        EXPECT_EQ(list(setup, "scanner_list").currentIndex(), -1);
        press_button(setup, "ok_button");
    });
    EXPECT_EQ(scanner_type, 4);
}

TEST_F(ProjectSetupTest, TheBatchScannerHasTwoNamesAndAPort) {
    scanner_type = 1;
    scanner_comm_port = 3;
    in_setup([](ProjectSetup& setup) {
        EXPECT_EQ(shown(setup, "scanner_list"), "CS1504 scanner");
        EXPECT_EQ(shown(setup, "port_list"), "Comm 3");
        EXPECT_TRUE(child<QComboBox>(setup, "port_list").isEnabled());
        list(setup, "scanner_list").setCurrentIndex(0);
        EXPECT_FALSE(child<QComboBox>(setup, "port_list").isEnabled());
        EXPECT_FALSE(child<QLabel>(setup, "port_label").isEnabled());
    });
    EXPECT_EQ(scanner_type, 0);
    in_setup([](ProjectSetup& setup) {
        list(setup, "scanner_list").setCurrentIndex(1);
        EXPECT_EQ(shown(setup, "scanner_list"), "Symbol CS1504 Scanner");
        list(setup, "port_list").setCurrentIndex(15);
    });
    EXPECT_EQ(scanner_type, 1);
    EXPECT_EQ(scanner_comm_port, 16);
}

TEST_F(ProjectSetupTest, BehindANumberStandsThePortThatItMeans) {
    scanner_type = 1;
    scanner_comm_port = 2;
    platform.scanner.ports = {"ttyS0", "ttyUSB0"};
    in_setup([](ProjectSetup& setup) {
        EXPECT_EQ(shown(setup, "port_list"), "Comm 2 (ttyUSB0)");
        QComboBox& ports = list(setup, "port_list");
        EXPECT_EQ(ports.count(), 16);
        EXPECT_EQ(ports.itemText(0), "Comm 1 (ttyS0)");
        EXPECT_EQ(ports.itemText(2), "Comm 3");
        EXPECT_EQ(ports.itemText(15), "Comm 16");
        ports.setCurrentIndex(0);
    });
    EXPECT_EQ(scanner_comm_port, 1);
}

TEST_F(ProjectSetupTest, AnOpenedListKnowsThePortsOfTheMoment) {
    scanner_type = 1;
    scanner_comm_port = 1;
    platform.scanner.ports = {"ttyS0"};
    in_setup([this](ProjectSetup& setup) {
        QComboBox& ports = list(setup, "port_list");
        platform.scanner.ports = {"ttyACM0", "ttyS0"};
        ports.setFocus();
        QTest::keyClick(&ports, Qt::Key_F4);  // opens the list
        EXPECT_TRUE(ports.view()->isVisible());
        EXPECT_EQ(shown(setup, "port_list"), "Comm 1 (ttyACM0)");
        EXPECT_EQ(ports.itemText(1), "Comm 2 (ttyS0)");
        QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&ports);
        EXPECT_EQ(heard->text(QAccessible::Value), "Comm 1 (ttyACM0)");
        ports.hidePopup();
        platform.scanner.ports = {};
        ports.showPopup();
        EXPECT_EQ(shown(setup, "port_list"), "Comm 1");
        ports.hidePopup();
    });
    EXPECT_EQ(scanner_comm_port, 1);
    EXPECT_EQ(project_modified, i16_false) << "nothing was chosen";
}

TEST_F(ProjectSetupTest, TextsAndNumbersAreWrittenWithOk) {
    in_setup([](ProjectSetup& setup) {
        write(setup, "days_ahead", "3");
        write(setup, "expiration_warning", "14 days");
        write(setup, "sales_tax", "7.5 %");
        choose_text(setup, "currency_list", "\xC2\xA3");
        write(setup, "ftp_server", "ftp.example.org");
        write(setup, "ftp_account", "cook");
        write(setup, "ftp_password", "secret");
        write(setup, "ftp_directory", "pages");
        QTest::keyClick(&child<QLineEdit>(setup, "ftp_directory"), Qt::Key_Return);
    });
    EXPECT_EQ(audit_days_ahead, 3);
    EXPECT_EQ(expiration_warning_days, 14);
    EXPECT_EQ(sales_tax, 7.5);
    EXPECT_EQ(currency_symbol, 163);
    EXPECT_EQ(ftp_server.right_trimmed(), "ftp.example.org");
    EXPECT_EQ(ftp_account.right_trimmed(), "cook");
    EXPECT_EQ(ftp_password.right_trimmed(), "secret");
    EXPECT_EQ(ftp_directory.right_trimmed(), "pages");
    EXPECT_EQ(panel(2), "Audit Time: 11:59 PM");
}

TEST_F(ProjectSetupTest, ADecimalCommaIsUnderstood) {
    in_setup([](ProjectSetup& setup) {
        write(setup, "sales_tax", "7,5 %");
        press_button(setup, "ok_button");
    });
    EXPECT_EQ(sales_tax, 7.5);
}

TEST_F(ProjectSetupTest, ANumberThatIsTooLargeKeepsTheScreenAndWhatWasTyped) {
    platform.boxes.expect_message("there has been an error");
    in_setup([](ProjectSetup& setup) {
        write(setup, "days_ahead", "40000");
        press_button(setup, "ok_button");
        EXPECT_TRUE(setup.isVisible());
        EXPECT_EQ(child<QLineEdit>(setup, "days_ahead").text(), "40000");
    });
    EXPECT_EQ(audit_days_ahead, 0);
}

TEST_F(ProjectSetupTest, TheButtonsStayInSightWhereThereIsLittleRoom) {
    in_setup([this](ProjectSetup& setup) {
        settle();
        const auto& content = child<QWidget>(setup, "setup_content");
        EXPECT_GE(setup.height(), content.sizeHint().height());  // all in sight at first
        setup.resize(400, 250);
        settle();
        EXPECT_EQ(setup.size(), QSize(400, 250));
        const auto& ok = child<QPushButton>(setup, "ok_button");
        EXPECT_LE(ok.mapTo(&setup, ok.rect().bottomRight()).y(), 250);
    });
}

// One notch towards the user.
void turn_wheel(QWidget& widget) {
    const QPointF at = widget.rect().center();
    QWheelEvent turn(at, widget.mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &turn);
}

TEST_F(ProjectSetupTest, TheWheelChangesNoList) {
    font_size = 10;
    audit_hour = 9;
    audit_minute = 30;
    in_setup([](ProjectSetup& setup) {
        const auto lists = setup.findChildren<QComboBox*>();
        ASSERT_GE(lists.size(), 7);
        for (QComboBox* one : lists) {
            one->setFocus();
            const int chosen = one->currentIndex();
            turn_wheel(*one);
            EXPECT_EQ(one->currentIndex(), chosen) << one->objectName().toStdString();
        }
        auto& minutes = list(setup, "minute_list");
        QTest::keyClick(&minutes, Qt::Key_Down);
        EXPECT_EQ(minutes.currentIndex(), 31);
    });
    EXPECT_EQ(font_size, 10);
}

TEST_F(ProjectSetupTest, TheCaptionsOfTheToolbarsFollowAtOnce) {
    show_toolbar_text = 0;
    window.set_toolbar_captions(false);
    const auto* bar = window.findChild<QToolBar*>(QStringLiteral("toolbar_1"));
    in_setup([&](ProjectSetup& setup) {
        tick_box(setup, "show_toolbar_text");
        EXPECT_EQ(bar->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
        press_button(setup, "cancel_button");
    });
    EXPECT_NE(show_toolbar_text, 0);
    in_setup([&](ProjectSetup& setup) { tick_box(setup, "show_toolbar_text"); });
    EXPECT_EQ(bar->toolButtonStyle(), Qt::ToolButtonIconOnly);
    EXPECT_EQ(show_toolbar_text, 0);
}

TEST_F(ProjectSetupTest, TheListsFollowATriedFontSizeAndTakeItBackOnCancel) {
    font_size = 10;
    open("FoodInventory");
    const QTreeView& tree = part<QTreeView>("item_tree");
    EXPECT_EQ(tree.font().pointSize(), 10);
    in_setup([&](ProjectSetup& setup) {
        choose_text(setup, "font_list", "24");
        EXPECT_EQ(tree.font().pointSize(), 24);
        press_button(setup, "cancel_button");
    });
    EXPECT_EQ(tree.font().pointSize(), 10);
    EXPECT_EQ(font_size, 10);
    in_setup([&](ProjectSetup& setup) {
        choose_text(setup, "font_list", "18");
        press_button(setup, "ok_button");
    });
    EXPECT_EQ(tree.font().pointSize(), 18);
    EXPECT_EQ(font_size, 18);
}

TEST_F(ProjectSetupTest, AfterACancelTheListsAreAsTheyWere) {
    font_size = 0;  // that of the system
    open("MealPlan");
    QTreeView& list = part<QTreeView>("lv2");
    list.header()->resizeSection(1, 90);
    const int points = list.font().pointSize();
    in_setup([&](ProjectSetup& setup) {
        choose_text(setup, "font_list", "72");
        EXPECT_GT(list.header()->sectionSize(1), 300);
        press_button(setup, "cancel_button");
    });
    EXPECT_EQ(list.font().pointSize(), points);
    EXPECT_NEAR(list.header()->sectionSize(1), 90, 2);
}

TEST_F(ProjectSetupTest, EverythingIsNamedForAssistiveTechnologyAndReachedByTab) {
    in_setup([](ProjectSetup& setup) {
        setup.activateWindow();
        ASSERT_TRUE(comes_true([&] {
            return setup.isActiveWindow() && QApplication::focusWidget()->window() == &setup;
        }));
        std::set<QWidget*> reached;
        for (int step = 0; step < 40; ++step) {
            reached.insert(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        const auto check_widget = [&](QWidget* widget) {
            if (!widget->isEnabled()) return;
            EXPECT_TRUE(reached.count(widget)) << widget->objectName().toStdString();
            QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
            EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty())
                << widget->objectName().toStdString();
        };
        for (auto* widget : setup.findChildren<QComboBox*>()) check_widget(widget);
        for (auto* widget : setup.findChildren<QLineEdit*>()) check_widget(widget);
        for (auto* widget : setup.findChildren<QCheckBox*>()) check_widget(widget);
        for (auto* widget : setup.findChildren<QPushButton*>()) check_widget(widget);
    });
}

// Behind the settings nobody could reach it.
TEST_F(ProjectSetupTest, TheProjectsPageComesOverTheSettings) {
    ASSERT_TRUE(lay_out_pages(shipped_page_file));
    in_setup([this](ProjectSetup& setup) {
        write(setup, "sales_tax", "7");
        when_modal<QDialog>([&](QDialog& over) {
            EXPECT_EQ(over.windowTitle(), "Project Information");
            html_views.show();
            settle();
            EXPECT_TRUE(child<QPushButton>(over, "print_button").isEnabled());
            press_key(child<QPushButton>(over, "print_button"), Qt::Key_F1);
            EXPECT_EQ(platform.help.pages_shown, std::vector<std::string>{"PP"});
            QTest::mouseClick(&child<QPushButton>(over, "cancel_button"), Qt::LeftButton);
        });
        press_button(setup, "project_info_button");
        EXPECT_EQ(preview_kind, 6);
        EXPECT_EQ(preview(), nullptr);
        EXPECT_TRUE(setup.isVisible());
        EXPECT_EQ(child<QLineEdit>(setup, "sales_tax").text(), "7");
    });
    EXPECT_FALSE(is_open("PP"));
}

TEST_F(ProjectSetupTest, ThePreviewBehindTheSettingsGivesWayToTheOneOverThem) {
    ASSERT_TRUE(lay_out_pages(shipped_page_file));
    preview_project();
    ASSERT_TRUE(is_open("PP"));
    in_setup([this](ProjectSetup& setup) {
        when_modal<QDialog>([&](QDialog& over) { over.close(); });
        press_button(setup, "project_info_button");
    });
    EXPECT_FALSE(is_open("PP"));
    preview_project();
    EXPECT_TRUE(is_open("PP"));
    EXPECT_NE(preview(), nullptr);
}

}  // namespace
}  // namespace tavernook
