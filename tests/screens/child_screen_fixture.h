// A child screen in the real main window with a project open, driven by mouse and keyboard.
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTreeView>
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "screens/frame/register_screens.h"
#include "screens/main_window_fixture.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

class ChildScreenTest : public MainWindowTest {
  protected:
    void SetUp() override {
        register_screens(window);
        start();
        project_open = i16_true;
        window.enable_project_menus(true);
        window.set_toolbar_state(2);
    }

    QWidget& open(const char* name) {
        screen = show_screen(QLatin1String(name));
        if (screen == nullptr) throw std::runtime_error(std::string("no screen ") + name);
        settle();
        return *screen;
    }
    bool is_open(const char* name) {
        return window.registry().loaded(QLatin1String(name)) != nullptr;
    }

    template <typename Widget = QWidget>
    Widget& part(const char* name) {
        auto* found = screen->findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) throw std::runtime_error(std::string("no part ") + name);
        return *found;
    }

    void click(const char* button) { QTest::mouseClick(&part(button), Qt::LeftButton); }

    static void click_row(QAbstractItemView& list, int row, Qt::KeyboardModifiers keys = {}) {
        const QModelIndex index = list.model()->index(row, 0);
        list.scrollTo(index);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, list.visualRect(index).center());
    }
    static void double_click_row(QAbstractItemView& list, int row) {
        click_row(list, row);
        const QModelIndex index = list.model()->index(row, 0);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
    }

    // A button pressed by its letter stays down for a moment, as the user sees it, and then acts.
    void press_letter(const char* keys) {
        press(keys);
        const QPointer<QWidget> pressed_on(screen);
        const bool acted = comes_true([&] {
            if (pressed_on.isNull()) return true;
            const auto buttons = pressed_on->findChildren<QPushButton*>();
            return std::none_of(buttons.begin(), buttons.end(),
                                [](const QPushButton* button) { return button->isDown(); });
        });
        EXPECT_TRUE(acted) << keys;
    }

    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    static std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }

    // Every row's text in a column, from the top.
    static std::vector<std::string> column(const QAbstractItemView& list, int number = 0) {
        std::vector<std::string> texts;
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            texts.push_back(list.model()->index(row, number).data().toString().toStdString());
        }
        return texts;
    }

    static std::string plain(QString text) { return text.remove(QLatin1Char('&')).toStdString(); }

    void expect_accessible_names() {
        int checked = 0;
        for (const QWidget* widget : screen->findChildren<QWidget*>()) {
            const QString name = widget->objectName();
            if (widget->focusPolicy() == Qt::NoFocus || name.isEmpty()) continue;
            if (is_inside_qt_part(widget)) continue;
            QAccessibleInterface* told =
                QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
            EXPECT_FALSE(told->text(QAccessible::Name).trimmed().isEmpty()) << name.toStdString();
            ++checked;
        }
        EXPECT_GE(checked, 3);
    }

    // Among all that is seen at once, the main window's menus included.
    void expect_unique_mnemonics() {
        std::set<QString> seen{"Alt+F", "Alt+P", "Alt+W", "Alt+H"};
        for (const QString& text : texts_with_mnemonics()) {
            const QString keys = QKeySequence::mnemonic(text).toString();
            EXPECT_TRUE(keys.isEmpty() || seen.insert(keys).second) << text.toStdString();
        }
    }

    // Every button can be had by a letter.
    void expect_every_button_has_a_mnemonic() {
        for (const auto* button : screen->findChildren<QPushButton*>()) {
            EXPECT_FALSE(QKeySequence::mnemonic(button->text()).isEmpty())
                << button->text().toStdString();
        }
    }

    QWidget* screen = nullptr;

  private:
    // The parts of Qt's own composed widgets have names of their own making.
    static bool is_inside_qt_part(const QWidget* widget) {
        return widget->objectName().startsWith("qt_");
    }

    QStringList texts_with_mnemonics() {
        QStringList texts;
        for (const auto* button : screen->findChildren<QPushButton*>()) texts << button->text();
        for (const auto* box : screen->findChildren<QCheckBox*>()) texts << box->text();
        for (const auto* label : screen->findChildren<QLabel*>()) {
            if (label->buddy() != nullptr) texts << label->text();
        }
        for (const auto* bar : screen->findChildren<QTabBar*>()) {
            for (int tab = 0; tab < bar->count(); ++tab) texts << bar->tabText(tab);
        }
        return texts;
    }
};

}  // namespace tavernook
