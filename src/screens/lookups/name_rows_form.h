// The screen of a small table of names that items refer to: stores, and the units that are its
// mirror image. A name is picked in the list or begun by "New", typed into the box, and stored by
// "Accept".
//
// The routines over the table speak of rows of a map that they rebuild themselves, and of a mode
// that tells a new name from a changed one. The form holds which record is being edited, and sets
// both from it whenever the map is new. What has been typed stays when others change the table,
// unless the record itself has gone.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/changes.h"
#include "core/project_data.h"
#include "screens/parts/screen.h"

namespace tavernook {

class RowsModel;

namespace Ui {
class NameRowsForm;
}

// What tells the screens apart: their words, and the routines over their table.
struct NameRowsKind {
    Subject table;
    QString label;        // with its mnemonic
    QString one, plural;  // "store", "Stores"
    int longest_name;
    std::array<i16, 1001>& list_map;
    i16& edit_mode;
    i16& list_row;
    std::string_view (*name_of)(i16 slot);               // empty for a free one
    void (*count_uses)(std::array<int, 1001>& by_slot);  // live items
    void (*refresh_list)();
    void (*accept)(std::string_view name);
    void (*delete_selected)(const std::vector<int>& rows);
    void (*refresh_boxes)();  // those of the item screen
};

class NameRowsForm : public Screen {
    Q_OBJECT

  public:
    NameRowsForm(NameRowsKind kind, QWidget* parent);
    ~NameRowsForm() override;

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
    void pick();
    void edit_name();

    void refresh();
    void point_at_edited();
    void show_edited();
    void stand_on(int row);
    void stop_editing();
    void allow_typing(bool allowed);
    int row_in_map(i16 slot) const;            // counted from 0, -1 when it is not there
    std::vector<int> selected_in_map() const;  // ascending
    std::vector<std::string> names_now() const;

    const NameRowsKind kind_;
    std::unique_ptr<Ui::NameRowsForm> ui_;
    RowsModel* model_;
    Seen seen_;
    RowRef edited_;  // none: a new name, or nothing is being edited
    bool is_new_ = false;
    bool filling_ = false;          // what the list selects meanwhile is no pick of the user's
    std::array<int, 1001> uses_{};  // live items, by slot
};

}  // namespace tavernook
