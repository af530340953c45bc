// The formatting toolbar over a recipe's text: font and size, then `Toolbar2` with the buttons. All
// of them act on the selection and show how it looks. What does not fit is in the bar's menu.
#pragma once

#include <QWidget>
#include <utility>
#include <vector>

#include "screens/text/recipe_look.h"

class QAction;
class QBrush;
class QTextCharFormat;
class QTextEdit;
class QToolBar;

namespace tavernook {

class ChoiceBox;
class InkMenu;

class RecipeToolbar : public QWidget {
    Q_OBJECT

  public:
    // The keys of the buttons work wherever the focus is inside `home`.
    RecipeToolbar(QTextEdit& text, QWidget& home);

    // For commands of the screen's own.
    QToolBar& bar() { return *bar_; }

    // In their order; one for all the buttons.
    std::vector<QWidget*> tab_stops() const;

    // The keys with the buttons.
    void set_usable(bool usable);

    // Shows the look of the selection; cheap enough for every move of the caret.
    void follow_caret();

  Q_SIGNALS:
    void picture_wanted();
    void barcode_wanted();
    void information_wanted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    struct ButtonPlan;

    void add_boxes();
    void add_buttons(QWidget& home);
    QAction* add_button(const ButtonPlan& plan, QWidget& home);
    void add_colours();
    void name_buttons();
    void connect_buttons();
    void merge(const QTextCharFormat& format);
    void set_alignment(Qt::Alignment side);
    void set_family(const QString& family);
    void set_size(const QString& size);
    void set_colour(const QBrush& ink);
    void back_to_text();

    QTextEdit& text_;
    ChoiceBox* font_box_;
    ChoiceBox* size_box_;
    QToolBar* bar_;
    InkMenu* colours_;
    std::vector<QAction*> own_;
    QAction* bold_ = nullptr;
    QAction* italic_ = nullptr;
    QAction* underline_ = nullptr;
    std::vector<std::pair<Qt::Alignment, QAction*>> sides_;
    QAction* bullet_ = nullptr;
    QAction* colour_ = nullptr;
};

}  // namespace tavernook
