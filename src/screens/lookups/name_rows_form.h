// The screen of a small table of names that items refer to: stores, and the units that are its
// mirror image. A name is picked in the list or begun by "New", typed into the box, and stored by
// "Accept".
#pragma once

#include <QWidget>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/project_data.h"

class QSortFilterProxyModel;

namespace tavernook {

class SlotRowsModel;

namespace Ui {
class NameRowsForm;
}

// What tells the screens apart: their words, and the routines over their table.
struct NameRowsKind {
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

class NameRowsForm : public QWidget {
    Q_OBJECT

  public:
    NameRowsForm(NameRowsKind kind, QWidget* parent);
    ~NameRowsForm() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

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
    void stop_editing();
    void allow_typing(bool allowed);
    int row_in_map(i16 slot) const;
    std::vector<int> selected_rows() const;  // of list_map, counted from 0
    std::vector<std::string> names_now() const;

    const NameRowsKind kind_;
    std::unique_ptr<Ui::NameRowsForm> ui_;
    SlotRowsModel* model_;
    QSortFilterProxyModel* sorted_;
    std::array<int, 1001> uses_{};  // live items, by slot
};

}  // namespace tavernook
