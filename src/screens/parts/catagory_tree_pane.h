// A list of items or recipes by category: a box to find them by, the tree, and one line below that
// says what to do where nothing is shown.
//
// The list of items and that of recipes are each a class over this one. Their layout files hold the
// controls, which may stand there among others; `set_up` takes them over with what the tree shows.
// From then on the pane keeps what the user has arranged: `populate` reads everything anew, and the
// same row is marked, the same categories are open, and the same rows are in sight as before. At
// first all categories are open, unless there are many leaves; see open_catagories.h. While a
// filter is typed everything found is in sight; after it the categories stand as they stood.
//
// A row is marked in two ways. The user's way tells: `chosen` says that another row is the current
// one, and the screen shows what stands there. `mark` only marks: a screen uses it for what it
// shows already, and hears nothing.
//
// Keys in the tree: Enter goes to the form or text of a leaf (`leaf_entered`) and opens or closes a
// category, F2 names what can be named in place (`rename_elsewhere` for what can't), Del, Ins and
// Shift+F10 (`menu_wanted`) tell, "/" leads to the find box, and so does a digit where the scanner
// is a keyboard: it may begin a code. In the find box Enter shows the first leaf found, Down goes
// on in the tree, Esc shows all again.
//
// What is renamed or dropped in the tree itself is a step: it ends when the view is done with its
// editor or with the drop, and the screens follow. What can go wrong: while a name is being typed
// the tree must not be filled again, since the editor would go; `is_naming` says so, and whoever
// follows changes waits. The end of the naming is the end of a step, too, so that nothing is
// missed.
#pragma once

#include <QString>
#include <QWidget>
#include <limits>
#include <memory>

#include "screens/parts/catagory_tree_model.h"

class QAction;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QTreeView;

namespace tavernook {

class OpenCatagories;

struct TreeControls {
    QLineEdit& filter;
    QTreeView& tree;
    QLabel& hint;
};

struct TreeManner {
    QString hint_when_empty;
    QString hint_when_none_match;
    int opens_up_to = std::numeric_limits<int>::max();  // so many leaves; with more it is closed
};

class CatagoryTreePane : public QWidget {
    Q_OBJECT

  public:
    using View = CatagoryTreeModel::View;

    explicit CatagoryTreePane(QWidget* parent = nullptr);
    ~CatagoryTreePane() override;

    // Reads anew what there is; what is marked, open and in sight stays so. Lets out what reading
    // throws, and everything stays as it was then.
    void populate() { populate(model_->view()); }
    void populate(View view);

    void expand_all(bool is_open);

    // Marks the row without a signal; an empty key, and one that is not shown, marks none.
    void mark(const QString& key);
    QString marked_key() const;

    // Of the row to mark when the marked one goes: the next in its category, or else the one
    // before, or else the category.
    QString key_beside_marked() const;

    i16 marked_leaf() const;
    i16 marked_catagory() const;  // 0 for the root, too
    bool is_root_marked() const;
    bool is_anything_marked() const;

    // The row marked again whenever the filter changes, as it may have hidden it; empty: the one
    // that was marked.
    void set_on_show(const QString& key) { on_show_ = key; }

    // A row that has just come, in sight: the filter goes where it hides it. It is not marked.
    void reveal(const QString& key);

    // To the find box. `show_all` empties it, and is false where it was empty.
    void find();
    bool show_all();

    // A name is being typed in the tree.
    bool is_naming() const;

    int leaf_count() const { return model_->leaf_count(); }
    QAction* rename_action() const { return rename_; }

  Q_SIGNALS:
    void chosen();
    void narrowed();
    void leaf_entered();
    void rename_elsewhere();
    void insert_wanted();
    void delete_wanted();
    void menu_wanted(const QPoint& on_screen);

  protected:
    // Once, in the constructor of the class over this one, when its layout stands.
    void set_up(const TreeControls& controls, TreeContents contents, TreeManner manner);
    CatagoryTreeModel& model() const { return *model_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_columns();
    void set_up_rename();
    void connect_tree();
    void restore_open();
    void span_catagories();
    void note_turned(const QModelIndex& index, bool is_open);
    void narrow(const QString& filter);
    void sort_by_header();
    void fit_name_column();
    void update_hint();
    void rename_marked();
    void enter_marked();
    void leave_filter(bool shows_first);
    bool tree_key(const QKeyEvent& key);
    bool filter_key(const QKeyEvent& key);

    QLineEdit* filter_ = nullptr;
    QTreeView* tree_ = nullptr;
    QLabel* hint_ = nullptr;
    CatagoryTreeModel* model_ = nullptr;
    std::unique_ptr<OpenCatagories> open_;
    QAction* rename_ = nullptr;
    TreeManner manner_;
    QString on_show_;
    bool is_arranging_ = false;
};

}  // namespace tavernook
