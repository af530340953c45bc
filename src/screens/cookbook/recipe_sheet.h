// The recipe on show: its name, its ingredients and figures, and its text. The sheet holds the
// three panes and knows which recipe stands in them; the screen around it decides which one that
// is, and when it may be left.
//
// What the user does on the sheet are commands, and a command goes through the screen: the sheet
// tells each by `command_wanted`, and the screen runs it as a step.
//
// `show_recipe` brings a recipe on the sheet. The ingredients and figures come first, then the
// text, each with its own box where it cannot be read. From the moment on in which the recipe
// counts as shown, and until its text is read, the text pane counts as holding none of its own: it
// is still another recipe's, and can neither be changed nor saved.
//
// `save` takes what the user has written off the sheet: a text that was changed, or that is new,
// goes into its file, and what was typed as serving size and unit into the table after it, whether
// or not there was a text to write.
//
// What can go wrong: the recipe goes while a box stands open, or while another screen works. It is
// held as a RowRef; `recipe` is 0 from then on, and `follow_changes` clears the sheet. A recipe
// whose text could not be kept when it was deleted leaves that text standing, locked, to be copied.
#pragma once

#include <QWidget>
#include <memory>
#include <string_view>
#include <vector>

#include "core/changes.h"
#include "recipes/roll_up.h"
#include "screens/parts/guard.h"

namespace tavernook {

class DocumentPane;
class FiguresPane;
class IngredientsPane;

namespace Ui {
class RecipeSheet;
}

class RecipeSheet : public QWidget {
    Q_OBJECT

  public:
    explicit RecipeSheet(QWidget* parent = nullptr);
    ~RecipeSheet() override;

    i16 recipe() const { return shown_.now(); }  // 0 when none is on show
    const RowRef& shown() const { return shown_; }
    bool holds_text() const;

    void show_recipe(i16 recipe);

    // It counts as shown. Nothing is loaded; ingredients and figures of another recipe go, after
    // what was typed there was taken.
    void set_recipe(i16 recipe);
    void show_nothing();

    // An empty text that the recipe does not have on the disk yet, ready to be written.
    void begin_text();

    // Reads ingredients and figures of any recipe; what was typed for the recipe on show is taken
    // first. A box tells why they cannot be read; the list is empty then.
    void fill_list(i16 recipe);
    void clear_list();

    // False after a failure, which one box has told.
    bool save();

    // The same for the pieces. A text that cannot be loaded leaves the pane as it was, and a pane
    // that does not hold the recipe's text is never saved.
    bool load_text(i16 slot);
    void reread_text();  // what stood there goes
    bool save_text(i16 slot);
    bool save_backup(i16 slot);

    // The recipe on show has just been deleted. Its text goes into the backup file and the sheet is
    // cleared, or the text stays where that failed.
    void leave_deleted(i16 slot);

    void clear_text();
    void lock_text();  // until the next `fit_to_recipe`
    void add_text(std::string_view text);

    // Ingredients and figures, as they are on the screen, at the end of the text.
    void add_information();

    const RollUp& figures() const { return figures_; }

    // What has changed elsewhere; a size or unit that is being typed stays.
    void follow_changes();

    // Fits names, buttons and notice to what is on show.
    void fit_to_recipe();

    void focus_text(Qt::FocusReason reason);
    std::vector<QWidget*> parts_in_order() const;

  Q_SIGNALS:
    void command_wanted(const Work& command);
    void close_wanted();

  private:
    void set_up_sizes();
    void listen_to_panes();
    void set_shown(i16 recipe);
    void read_list(i16 recipe);
    void refresh_figures();
    bool take_serving();
    void store_serving();
    void remove_marked();
    void begin_lost_text();

    std::unique_ptr<Ui::RecipeSheet> ui_;
    IngredientsPane& ingredients_;
    FiguresPane& figures_pane_;
    DocumentPane& document_;

    RowRef shown_;
    RollUp figures_;  // as they are on the screen
    Seen seen_{Subject::recipes, Subject::items, Subject::units, Subject::settings};
};

}  // namespace tavernook
