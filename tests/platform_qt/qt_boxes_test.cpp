#include "platform_qt/qt_boxes.h"

#include <QClipboard>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <gtest/gtest.h>
#include <memory>

#include "gui_support/modal_driver.h"

namespace tavernook {
namespace {

using Optional = std::optional<std::string>;

Answer answer_to_click(Buttons buttons, const char* button) {
    when_modal<QMessageBox>([=](QMessageBox& box) { child<QPushButton>(box, button).click(); });
    return QtBoxes().message("Save?", buttons, "Tavernook");
}

Answer answer_to_key(Buttons buttons, int key, const char* text = "") {
    when_modal<QMessageBox>(
        [=](QMessageBox& box) { press_key(box, key, QString::fromLatin1(text)); });
    return QtBoxes().message("Save?", buttons, "Tavernook");
}

Answer answer_to_closing(Buttons buttons) {
    when_modal<QMessageBox>([](QMessageBox& box) { box.close(); });
    return QtBoxes().message("Save?", buttons, "Tavernook");
}

TEST(MessageBox, ButtonsGiveTheirAnswers) {
    EXPECT_EQ(answer_to_click(Buttons::ok, "button_ok"), Answer::ok);
    EXPECT_EQ(answer_to_click(Buttons::yes_no, "button_yes"), Answer::yes);
    EXPECT_EQ(answer_to_click(Buttons::yes_no, "button_no"), Answer::no);
    EXPECT_EQ(answer_to_click(Buttons::yes_no_cancel, "button_yes"), Answer::yes);
    EXPECT_EQ(answer_to_click(Buttons::yes_no_cancel, "button_no"), Answer::no);
    EXPECT_EQ(answer_to_click(Buttons::yes_no_cancel, "button_cancel"), Answer::cancel);
}

TEST(MessageBox, EscapeIsCancelOrNo) {
    EXPECT_EQ(answer_to_key(Buttons::ok, Qt::Key_Escape), Answer::ok);
    EXPECT_EQ(answer_to_key(Buttons::yes_no, Qt::Key_Escape), Answer::no);
    EXPECT_EQ(answer_to_key(Buttons::yes_no_cancel, Qt::Key_Escape), Answer::cancel);
}

TEST(MessageBox, ClosingTheWindowIsCancelOrNo) {
    EXPECT_EQ(answer_to_closing(Buttons::ok), Answer::ok);
    EXPECT_EQ(answer_to_closing(Buttons::yes_no), Answer::no);
    EXPECT_EQ(answer_to_closing(Buttons::yes_no_cancel), Answer::cancel);
}

TEST(MessageBox, LettersAndEnterPressTheButtons) {
    EXPECT_EQ(answer_to_key(Buttons::yes_no_cancel, Qt::Key_Y, "y"), Answer::yes);
    EXPECT_EQ(answer_to_key(Buttons::yes_no_cancel, Qt::Key_N, "n"), Answer::no);
    EXPECT_EQ(answer_to_key(Buttons::yes_no_cancel, Qt::Key_Return), Answer::yes);
}

TEST(MessageBox, EnterPressesNoWhereNoIsTheDefault) {
    when_modal<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        press_key(box, Qt::Key_Return);
    });
    EXPECT_EQ(QtBoxes().message("Sure?", Buttons::yes_no, "Tavernook", DefaultButton::no),
              Answer::no);
}

TEST(MessageBox, TheIconTellsWhatKindOfBoxItIs) {
    const auto expect_icon = [](QMessageBox::Icon icon) {
        when_modal<QMessageBox>([icon](QMessageBox& box) {
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Kitchen"));
            EXPECT_EQ(box.buttons().size(), icon == QMessageBox::Question ? 2 : 1);
            box.close();
        });
    };
    expect_icon(QMessageBox::Information);
    QtBoxes().message("Done.", Buttons::ok, "Kitchen");
    expect_icon(QMessageBox::Question);
    QtBoxes().message("Save?", Buttons::yes_no, "Kitchen");
    expect_icon(QMessageBox::Warning);
    QtBoxes().warning("Too much.", "Kitchen");
}

TEST(MessageBox, HasNoOtherButtonsThanAskedFor) {
    for (const auto& [buttons, count] :
         {std::pair{Buttons::ok, 1}, {Buttons::yes_no, 2}, {Buttons::yes_no_cancel, 3}}) {
        when_modal<QMessageBox>([expected = count](QMessageBox& box) {
            EXPECT_EQ(box.buttons().size(), expected);
            box.close();
        });
        QtBoxes().message("Save?", buttons, "Tavernook");
    }
}

TEST(MessageBox, ShowsItsTextAsItIs) {
    when_modal<QMessageBox>([](QMessageBox& box) {
        const QString text = QString::fromUtf16(u"<b>Sugar & Cr\u00E8me</b>\nnext\nlast &amp;");
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), QString::fromUtf16(u"Caf\u00E9"));
        EXPECT_EQ(box.objectName(), QStringLiteral("message_box"));
        EXPECT_EQ(box.accessibleDescription(), text);
        EXPECT_EQ(box.accessibleName(), box.windowTitle());
        box.close();
    });
    QtBoxes().message("<b>Sugar & Cr\xE8me</b>\r\nnext\rlast &amp;", Buttons::ok, "Caf\xE9");
}

TEST(MessageBox, StandsOverTheActiveWindow) {
    QWidget window;
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    when_modal<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_TRUE(box.isModal());
        box.close();
    });
    QtBoxes().message("Save?", Buttons::ok, "Tavernook");
}

TEST(MessageBox, ABoxOverABoxBelongsToIt) {
    when_modal<QMessageBox>([](QMessageBox& lower) {
        when_modal<QMessageBox>([&](QMessageBox& upper) {
            EXPECT_EQ(upper.parentWidget(), &lower);
            upper.close();
        });
        QtBoxes().message("upper", Buttons::ok, "Tavernook");
        lower.close();
    });
    QtBoxes().message("lower", Buttons::ok, "Tavernook");
}

TEST(MessageBox, SurvivesTheEndOfTheWindowUnderIt) {
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    QApplication::processEvents();
    when_modal<QMessageBox>([&](QMessageBox&) { window.reset(); });
    EXPECT_EQ(QtBoxes().message("Save?", Buttons::yes_no_cancel, "Tavernook"), Answer::cancel);
}

// The text that a box in use may come to: every name of a full household.
std::string names(int count) {
    std::string text = "This Store is used by ";
    for (int item = 1; item <= count; ++item) {
        text +=
            (item == 1 ? "ITEM:" : ",ITEM:") + ("Item number " + std::to_string(item) + " of all");
    }
    return text;
}
const std::string all_names = names(10'000);

void expect_inside(const QDialog& box) {
    QApplication::processEvents();
    EXPECT_TRUE(box.screen()->availableGeometry().contains(QRect(QPoint(), box.frameSize())));
    for (const auto* button : box.findChildren<QPushButton*>()) {
        EXPECT_TRUE(button->isVisible());
        const QRect place(button->mapTo(&box, QPoint()), button->size());
        EXPECT_TRUE(box.rect().contains(place)) << button->objectName().toStdString();
    }
    auto& text = child<QPlainTextEdit>(box, "long_text");
    EXPECT_TRUE(text.isVisible());
    EXPECT_TRUE(box.rect().contains(QRect(text.mapTo(&box, QPoint()), text.size())));
    EXPECT_GT(text.verticalScrollBar()->maximum(), 0);
    EXPECT_GE(text.viewport()->height(), 4 * text.fontMetrics().lineSpacing());
}

// At the usual size of text, and at twice that.
template <typename Check>
void at_both_text_sizes(Check check) {
    check();
    const QFont before = QApplication::font();
    QFont twice = before;
    twice.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(twice);
    check();
    QApplication::setFont(before);
}

TEST(LongTextInABox, TheBoxFitsTheScreenWithItsButtons) {
    ASSERT_GE(all_names.size(), 270'000u);
    at_both_text_sizes([] {
        when_modal<QMessageBox>([](QMessageBox& box) {
            expect_inside(box);
            press_key(box, Qt::Key_Return);
        });
        EXPECT_EQ(QtBoxes().message(all_names, Buttons::yes_no_cancel, "Tavernook"), Answer::yes);
        when_modal<QMessageBox>([](QMessageBox& box) {
            expect_inside(box);
            press_key(box, Qt::Key_Return);
        });
        EXPECT_EQ(QtBoxes().message(names(90), Buttons::yes_no, "Tavernook", DefaultButton::no),
                  Answer::no);
    });
}

TEST(LongTextInABox, SoDoesThePrompt) {
    at_both_text_sizes([] {
        when_modal<QDialog>([](QDialog& box) {
            expect_inside(box);
            EXPECT_EQ(box.accessibleDescription().toStdString(), all_names);
            EXPECT_EQ(box.focusWidget(), &child<QLineEdit>(box, "input_field"));
            press_key(box, Qt::Key_Return);
        });
        EXPECT_EQ(QtBoxes().input(all_names, "Tavernook", "old"), Optional("old"));
    });
}

TEST(LongTextInABox, ALineWithoutABlankIsWrapped) {
    when_modal<QDialog>([](QDialog& box) {
        QApplication::processEvents();
        const QScreen& screen = *box.screen();
        EXPECT_LT(box.width(), screen.availableGeometry().width());
        const auto& text = child<QPlainTextEdit>(box, "long_text");
        EXPECT_EQ(text.horizontalScrollBar()->maximum(), 0);
        EXPECT_LT(text.height(), 10 * text.fontMetrics().lineSpacing());
        box.close();
    });
    QtBoxes().input(std::string(200, 'w'), "Tavernook", "");
}

TEST(LongTextInABox, ThePageKeysScrollItWhereverTheFocusIs) {
    const auto scroll = [](QDialog& box, QWidget& focused) {
        QApplication::processEvents();
        const QScrollBar& bar = *child<QPlainTextEdit>(box, "long_text").verticalScrollBar();
        EXPECT_EQ(bar.value(), 0);
        press_key(focused, Qt::Key_PageDown);
        const int page = bar.value();
        EXPECT_GT(page, 2);
        press_key(focused, Qt::Key_PageDown);
        press_key(focused, Qt::Key_PageUp);
        EXPECT_EQ(bar.value(), page);
        box.close();
    };
    when_modal<QMessageBox>([&](QMessageBox& box) { scroll(box, *box.buttons().constFirst()); });
    QtBoxes().message(names(500), Buttons::yes_no, "Tavernook");
    when_modal<QDialog>([&](QDialog& box) { scroll(box, child<QLineEdit>(box, "input_field")); });
    QtBoxes().input(names(500), "Tavernook", "");
}

TEST(LongTextInABox, ItCanBeSelectedCopiedAndHeard) {
    when_modal<QMessageBox>([](QMessageBox& box) {
        auto& text = child<QPlainTextEdit>(box, "long_text");
        EXPECT_TRUE(text.isReadOnly());
        EXPECT_EQ(text.focusPolicy() & Qt::TabFocus, Qt::TabFocus);
        text.selectAll();
        text.copy();
        EXPECT_EQ(QApplication::clipboard()->text().toStdString(), all_names);
        EXPECT_EQ(box.accessibleDescription().toStdString(), all_names);
        EXPECT_EQ(text.accessibleName(), "Stores");
        text.setFocus();
        press_key(text, Qt::Key_Tab, QStringLiteral("\t"));
        EXPECT_NE(box.focusWidget(), &text);
        box.close();
    });
    QtBoxes().message(all_names, Buttons::ok, "Stores");
}

TEST(LongTextInABox, AShortTextStandsInALabelAndCanBeSelected) {
    when_modal<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.findChild<QPlainTextEdit*>("long_text"), nullptr);
        EXPECT_TRUE(box.textInteractionFlags() & Qt::TextSelectableByMouse);
        box.close();
    });
    QtBoxes().message(names(3), Buttons::ok, "Stores");
    when_modal<QDialog>([](QDialog& box) {
        EXPECT_EQ(box.findChild<QPlainTextEdit*>("long_text"), nullptr);
        box.close();
    });
    QtBoxes().input(names(3), "Stores", "");
}

// As a scanner that is a keyboard types it; the end of the code is not among it.
void type_code(QWidget& receiver, const QString& code) {
    for (const QChar letter : code) press_key(receiver, letter.toUpper().unicode(), letter);
}

// Into the box itself, and into the button that has the focus.
template <typename Check>
void in_a_question(Answer expected, Check check) {
    for (const bool to_button : {false, true}) {
        when_modal<QMessageBox>([=](QMessageBox& box) {
            QWidget& button = child<QWidget>(box, "button_yes");
            check(box, to_button ? button : static_cast<QWidget&>(box));
        });
        EXPECT_EQ(QtBoxes().message("Save?", Buttons::yes_no_cancel, "Tavernook"), expected);
    }
}

TEST(CodeInAMessageBox, DoesNotAnswerIt) {
    in_a_question(Answer::yes, [](QMessageBox& box, QWidget& receiver) {
        for (const char* code : {"5012", "tvk5n0y1c2", "7N"}) {
            for (const int end : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
                QWidget* focused = box.focusWidget();
                type_code(receiver, code);
                press_key(receiver, end);
                EXPECT_TRUE(box.isVisible()) << code;
                EXPECT_EQ(box.focusWidget(), focused) << code;
            }
        }
        press_key(receiver, Qt::Key_Return);
        EXPECT_FALSE(box.isVisible());
    });
}

TEST(CodeInAMessageBox, BehindItLettersAnswerAsBefore) {
    in_a_question(Answer::no, [](QMessageBox& box, QWidget& receiver) {
        type_code(receiver, "5012");
        press_key(receiver, Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        press_key(receiver, Qt::Key_N, "n");
    });
}

TEST(CodeInAMessageBox, EscapeAnswersInTheMiddleOfIt) {
    in_a_question(Answer::cancel, [](QMessageBox&, QWidget& receiver) {
        type_code(receiver, "50");
        press_key(receiver, Qt::Key_Escape);
    });
}

TEST(CodeInAMessageBox, ADigitWithCtrlBeginsNone) {
    in_a_question(Answer::yes, [](QMessageBox& box, QWidget& receiver) {
        QKeyEvent command(QEvent::KeyPress, Qt::Key_1, Qt::ControlModifier, "1");
        QApplication::sendEvent(&receiver, &command);
        press_key(receiver, Qt::Key_Return);
        EXPECT_FALSE(box.isVisible());
    });
}

TEST(CodeInAMessageBox, NeitherDoesItInsideALongText) {
    when_modal<QMessageBox>([](QMessageBox& box) {
        auto& text = child<QPlainTextEdit>(box, "long_text");
        type_code(text, "50n");
        press_key(text, Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        press_key(text, Qt::Key_N, "n");
    });
    EXPECT_EQ(QtBoxes().message(all_names, Buttons::yes_no, "Tavernook"), Answer::no);
}

TEST(CodeInAMessageBox, AnInputBoxTakesIt) {
    when_modal<QDialog>([](QDialog& box) {
        auto& field = child<QLineEdit>(box, "input_field");
        type_code(field, "50n");
        press_key(field, Qt::Key_Return);
    });
    EXPECT_EQ(QtBoxes().input("Code:", "Tavernook", "old"), Optional("50n"));
}

TEST(MessageBox, ACriticalQuestionBearsItsIcon) {
    when_modal<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Kitchen"));
        EXPECT_EQ(box.buttons().size(), 2);
        press_key(box, Qt::Key_Return);
    });
    EXPECT_EQ(QtBoxes().critical("Go on?", Buttons::yes_no, "Kitchen", DefaultButton::no),
              Answer::no);
}

bool box_is_open() {
    return QtBoxes().is_open();
}

TEST(OpenBox, BoxesCount) {
    EXPECT_FALSE(box_is_open());
    when_modal<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box_is_open());
        box.close();
    });
    QtBoxes().message("Save?", Buttons::ok, "Tavernook");
    EXPECT_FALSE(box_is_open());
    when_modal<QDialog>([](QDialog& box) {
        EXPECT_TRUE(box_is_open());
        box.close();
    });
    QtBoxes().input("Name:", "Tavernook", "");
    EXPECT_FALSE(box_is_open());
}

TEST(OpenBox, ModalScreensAndMenusCount) {
    QWidget window;
    window.show();
    EXPECT_FALSE(box_is_open());
    QDialog screen(&window);
    screen.open();
    EXPECT_TRUE(box_is_open());
    screen.close();
    EXPECT_FALSE(box_is_open());
    QMenu menu(&window);
    menu.addAction("Cut");
    menu.popup(QPoint());
    EXPECT_TRUE(box_is_open());
    menu.close();
    EXPECT_FALSE(box_is_open());
}

// The desktop's own is a dialog of the program that is not painted by it.
TEST(OpenBox, FileDialogsCountAlsoTheDesktopsOwn) {
    QFileDialog ours;
    ours.open();
    EXPECT_TRUE(box_is_open());
    ours.close();
    QDialog desktops;
    desktops.setAttribute(Qt::WA_DontShowOnScreen);
    desktops.open();
    EXPECT_TRUE(box_is_open());
    desktops.close();
    EXPECT_FALSE(box_is_open());
}

Optional answer_to_typing(const QString& typed, const char* button) {
    when_modal<QDialog>([=](QDialog& box) {
        child<QLineEdit>(box, "input_field").setText(typed);
        child<QPushButton>(box, button).click();
    });
    return QtBoxes().input("Name:", "Tavernook", "old");
}

TEST(InputBox, GivesWhatWasTypedAsTextOfTheCodePage) {
    EXPECT_EQ(answer_to_typing(QString::fromUtf16(u"Cr\u00E8me \u20AC"), "button_ok"),
              Optional("Cr\xE8me \x80"));
}

TEST(InputBox, AnEmptyAnswerDiffersFromCancel) {
    EXPECT_EQ(answer_to_typing(QString(), "button_ok"), Optional(""));
    EXPECT_EQ(answer_to_typing(QStringLiteral("new"), "button_cancel"), std::nullopt);
}

TEST(InputBox, EnterAcceptsAndEscapeCancels) {
    when_modal<QDialog>([](QDialog& box) { press_key(box, Qt::Key_Return); });
    EXPECT_EQ(QtBoxes().input("Name:", "Tavernook", "old"), Optional("old"));
    when_modal<QDialog>([](QDialog& box) { press_key(box, Qt::Key_Escape); });
    EXPECT_EQ(QtBoxes().input("Name:", "Tavernook", "old"), std::nullopt);
}

TEST(InputBox, TypingReplacesTheSelectedText) {
    when_modal<QDialog>([](QDialog& box) {
        auto& field = child<QLineEdit>(box, "input_field");
        EXPECT_EQ(box.focusWidget(), &field);
        EXPECT_EQ(field.selectedText(), QString::fromUtf16(u"old \u00E9"));
        press_key(field, Qt::Key_X, QStringLiteral("x"));
        press_key(box, Qt::Key_Return);
    });
    EXPECT_EQ(QtBoxes().input("Name:", "Tavernook", "old \xE9"), Optional("x"));
}

TEST(InputBox, ShowsItsPromptAsItIs) {
    when_modal<QDialog>([](QDialog& box) {
        const QString prompt = QStringLiteral("Salt & <i>pepper</i>\nhow much?");
        EXPECT_EQ(box.objectName(), QStringLiteral("input_box"));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Amount"));
        const auto& label = child<QLabel>(box, "input_prompt");
        EXPECT_EQ(label.text(), prompt);
        EXPECT_EQ(label.textFormat(), Qt::PlainText);
        EXPECT_EQ(label.buddy(), nullptr);
        EXPECT_EQ(child<QLineEdit>(box, "input_field").accessibleName(), prompt);
        box.close();
    });
    EXPECT_EQ(QtBoxes().input("Salt & <i>pepper</i>\r\nhow much?", "Amount", ""), std::nullopt);
}

TEST(InputBox, SurvivesTheEndOfTheWindowUnderIt) {
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    QApplication::processEvents();
    when_modal<QDialog>([&](QDialog&) { window.reset(); });
    EXPECT_EQ(QtBoxes().input("Name:", "Tavernook", "old"), std::nullopt);
}

}  // namespace
}  // namespace tavernook
