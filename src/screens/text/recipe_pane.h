// The document of a recipe with its formatting toolbar. It knows no recipe and no file: the screen
// loads and saves it.
#pragma once

#include <QImage>
#include <QStringList>
#include <QWidget>
#include <string>
#include <string_view>
#include <vector>

#include "basics/values.h"

class QTextEdit;
class QToolBar;

namespace tavernook {

class RecipeText;
class RecipeToolbar;

class RecipePane : public QWidget {
    Q_OBJECT

  public:
    explicit RecipePane(QWidget* parent = nullptr);

    // Replaces the document and its undo history; the caret goes to its start. False: the text is
    // too much to be laid out with its looks. Its words stand there without them, if need be not to
    // its end, and must not be saved in its place. Fault 13: no rich text. Fault 63: cut short or
    // beyond the bounds. After a fault all is as it was.
    bool load(std::string_view rich_text);
    // Fault 6, with a sentence for the user, for a text that could not be read again.
    std::string rich_text() const;
    // Whether `load` would show it with its looks.
    bool is_light() const;
    void clear();

    // Since load, clear or set_unchanged.
    bool is_changed() const;
    void set_unchanged();

    // False: nothing can be changed by the user, but a text that stands there can be read and
    // copied. So it is at first.
    void set_editable(bool editable);

    // Puts the text on the clipboard and pastes it: in place of the selection, in the look of the
    // caret.
    void add_text(const QString& text);
    // The caret goes to the end; each line and its line break follow. One undo takes all back.
    void add_lines(const QStringList& lines);

    // At the caret, in a paragraph of its own, at most two thirds as wide as the pane. A picture
    // whose longer side is above 1,600 dots is kept with 1,600. False, and nothing is changed,
    // where it is none or too large for a recipe.
    [[nodiscard]] bool insert_picture(const QImage& picture);

    // Asks for a file. Cancel leaves all as it is; so does a file that cannot be read, is no
    // picture or too large, and a box tells.
    void InsertImage();

    // Draws the recipe's barcode into its file and puts it at the caret. Boxes tell what failed.
    void insert_barcode_of(i16 recipe);

    // `Toolbar2`, for commands of the screen's own.
    QToolBar& toolbar();
    QTextEdit& text();

    // What the tab key stops at: the toolbar, then the text.
    std::vector<QWidget*> parts_in_order();

  Q_SIGNALS:
    // The user, or a call other than load and clear, changed the document.
    void changed();
    void barcode_wanted();
    void information_wanted();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void insert_picture_file(const std::string& path);
    void tell_refused_picture();
    void settle_text();

    RecipeText* text_;
    RecipeToolbar* toolbar_;
    bool loading_ = false;
    bool editable_ = false;
};

}  // namespace tavernook
