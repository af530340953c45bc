// The text of the recipe on show, and the line above it that says why there is none. The pane knows
// whose text it holds: what could not be read, or only shown without its looks, is never saved
// over, and a text that stands there still from another recipe cannot be changed.
#pragma once

#include <QStringList>
#include <QWidget>
#include <memory>
#include <string_view>
#include <vector>

#include "core/changes.h"

namespace tavernook {

class RecipePane;

namespace Ui {
class DocumentPane;
}

class DocumentPane : public QWidget {
    Q_OBJECT

  public:
    explicit DocumentPane(QWidget* parent = nullptr);
    ~DocumentPane() override;

    // Whose text belongs here from now on. What the pane holds stays.
    void set_recipe(const RowRef& recipe) { recipe_ = recipe; }

    // The things the pane can hold. Nothing, for no recipe; an empty text that its recipe does not
    // have on the disk yet; nothing of the recipe, and what stood there before still stands; and,
    // by `load`, the recipe's text, or its bare words where the text is too much to be shown.
    void hold_nothing();
    void hold_fresh();
    void hold_unread();
    void clear();  // empty, and holds nothing

    bool holds_text() const { return holds_ == Holds::loaded || holds_ == Holds::fresh; }
    bool has_unsaved_text() const;

    // Each false after a failure, which one box has told. A text that cannot be loaded leaves the
    // pane as it was; one that could not be read again is not saved.
    bool load(i16 slot);
    bool save(i16 slot);
    bool save_backup(i16 slot);

    // Of a recipe that has just been deleted, into its backup file. A text that could not be read,
    // or not shown with its looks, is kept as its file has it.
    bool keep_deleted(i16 slot);

    // Nothing can be typed until `update_notice`.
    void lock();

    // The notice, and whether the text can be changed.
    void update_notice();

    // Into the text; nothing without one.
    void add_text(std::string_view text);
    void add_lines(const QStringList& lines);
    void insert_barcode();

    // Where a file is missing the user may begin again; a file that is there stays as it is.
    bool can_begin_anew() const;

    std::vector<QWidget*> parts_in_order() const;

  Q_SIGNALS:
    void edited();  // there is something to be saved
    void information_wanted();
    void barcode_wanted();
    void new_text_wanted();

  private:
    enum class Holds { none, loaded, fresh, unread, bare_words };

    void hold(Holds what);
    void take(i16 slot);
    QString notice() const;

    std::unique_ptr<Ui::DocumentPane> ui_;
    RecipePane* pane_;
    RowRef recipe_;
    Holds holds_ = Holds::none;
    QString owner_;  // the name of the recipe whose text stands in the pane
};

}  // namespace tavernook
