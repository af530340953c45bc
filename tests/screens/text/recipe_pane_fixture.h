// The pane of a recipe's text, driven by mouse and keyboard; what it holds is read from its rich
// text by a fresh document.
#pragma once

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextList>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "fakes/test_platform.h"
#include "gui_support/waiting.h"
#include "gui_support/warning_guard.h"
#include "platform/platform.h"
#include "rich_text/rtf_reader.h"
#include "screens/text/recipe_pane.h"

namespace tavernook {

class RecipePaneTest : public testing::Test {
  protected:
    RecipePaneTest() {
        set_platform({.clock = &platform.clock,
                      .boxes = &platform.boxes,
                      .file_dialogs = &platform.dialogs,
                      .files = &platform.files,
                      .system_info = &platform.system,
                      .main = &platform.main});
        pane.set_editable(true);
        pane.resize(1000, 600);
        pane.show();
    }

    void SetUp() override {
        ASSERT_TRUE(becomes_active(pane));
        pane.setFocus();
    }

    template <typename Widget = QWidget>
    Widget& part(const char* name) {
        auto* found = pane.findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) throw std::runtime_error(std::string("no part ") + name);
        return *found;
    }
    QTextEdit& text() { return pane.text(); }

    QToolButton& button(const char* name) {
        return part<QToolButton>((std::string("recipe_") + name + "_button").c_str());
    }
    void click(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    bool is_down(const char* name) { return button(name).isChecked(); }

    void press(const char* keys) {
        const QKeyCombination combination = QKeySequence(QLatin1String(keys))[0];
        QTest::keyClick(QApplication::focusWidget(), combination.key(),
                        combination.keyboardModifiers());
    }
    void type(const char* typed) { QTest::keyClicks(QApplication::focusWidget(), typed); }

    // The first time that it stands there.
    void select(const char* words) {
        const QTextCursor found = text().document()->find(QLatin1String(words), 0);
        if (found.isNull()) throw std::runtime_error(std::string("no text ") + words);
        text().setTextCursor(found);
    }
    void put_caret(int place) {
        QTextCursor caret = text().textCursor();
        caret.setPosition(place);
        text().setTextCursor(caret);
    }

    // A fresh document out of what the pane would save.
    QTextDocument& saved() {
        saved_ = std::make_unique<QTextDocument>();
        rtf::read(pane.rich_text(), *saved_);
        return *saved_;
    }
    std::string saved_text() { return saved().toPlainText().toStdString(); }

    // The look of the piece that begins with the words.
    QTextCharFormat saved_look(const char* words) {
        const QTextCursor found = saved().find(QLatin1String(words), 0);
        if (found.isNull()) throw std::runtime_error(std::string("not saved: ") + words);
        QTextCursor first(saved_.get());
        first.setPosition(found.selectionStart() + 1);
        return first.charFormat();
    }
    QTextBlock saved_paragraph(int number) { return saved().findBlockByNumber(number); }

    struct SavedPicture {
        QImage image;
        QSizeF size;
    };
    std::vector<SavedPicture> saved_pictures() {
        std::vector<SavedPicture> pictures;
        const QTextDocument& document = saved();
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
                if (!format.isValid()) continue;
                const QVariant kept =
                    document.resource(QTextDocument::ImageResource, QUrl(format.name()));
                pictures.push_back({kept.value<QImage>(), {format.width(), format.height()}});
            }
        }
        return pictures;
    }

    static QImage plain_picture(int width, int height, QColor colour = Qt::red) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(colour);
        return picture;
    }

    TestPlatform platform;
    RecipePane pane;

  private:
    std::unique_ptr<QTextDocument> saved_;
};

}  // namespace tavernook
