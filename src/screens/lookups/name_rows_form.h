// The screen of a small table of names that items refer to: stores, and the units that are its
// mirror image. A name is picked in the list or begun by "New", typed into the box, and stored by
// "Accept".
//
// The routines over the table speak of rows of a map that they rebuild themselves, and of a mode
// that tells a new name from a changed one. The form holds which record is being edited, and sets
// both from it whenever the map is new. What has been typed stays when others change the table,
// unless the record itself has gone. Before it would be dropped, by another pick, by "New", with
// the screen or the project, the user is asked; Esc takes it back without a question.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/changes.h"
#include "screens/lookups/name_rows_kind.h"
#include "screens/parts/screen.h"
#include "screens/parts/unsaved_edits.h"

namespace tavernook {

class RowsModel;

namespace Ui {
class NameRowsForm;
}

class NameRowsForm : public Screen, public UnsavedEdits {
    Q_OBJECT

  public:
    NameRowsForm(NameRowsKind kind, QWidget* parent);
    ~NameRowsForm() override;

    bool settle_edits() override;

  protected:
    void follow_changes() override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void set_up_list();
    void connect_commands();

    void new_name();
    void accept_name();
    void delete_names();
    void escape();
    void turn_to_pick();
    void pick();
    void edit_name();

    bool is_typed() const;   // what stands in the box is not what was shown there
    bool has_edits() const;  // that could be accepted
    bool settle();
    void drop_edits();

    void refresh();
    void point_at_edited();
    void show_edited();
    void stand_on(int row);
    void stop_editing();
    void allow_typing(bool allowed);
    void show_in_box(const QString& name);
    i16 picked() const;  // of the selected rows the one for the box; 0 for none
    void mark_edited();
    int row_in_map(i16 slot) const;            // counted from 0, -1 when it is not there
    std::vector<int> selected_in_map() const;  // ascending
    std::vector<std::string> names_now() const;

    const NameRowsKind kind_;
    std::unique_ptr<Ui::NameRowsForm> ui_;
    RowsModel* model_;
    Seen seen_;
    RowRef edited_;  // none: a new name, or nothing is being edited
    bool is_new_ = false;
    QString shown_;                 // in the box, before anything was typed
    bool is_turning_ = false;       // a question about what was typed is on its way
    bool filling_ = false;          // what the list selects meanwhile is no pick of the user's
    std::array<int, 1001> uses_{};  // live items, by slot
};

}  // namespace tavernook
