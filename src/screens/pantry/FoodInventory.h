// The screen on which items are seen and edited: the list of the items, the form of the one on
// show, and the commands. Other screens open it to pick an item, in a return mode.
//
// Which item is on show is a RowRef, or a new item that has no slot yet. Its form is filled first
// and then counts as on show, so that an item which cannot be told leaves nothing half shown. While
// an item is on show it is followed: what others change comes into the boxes that the user has not
// touched, and an item that is deleted elsewhere leaves an empty form and a line that says so; an
// item that takes its slot is another one.
//
// Before the form shows something else, and before the screen or the project goes, edits are asked
// about (`settle_edits`): kept, dropped, or stayed with. Behind that box, as behind every other,
// the item is taken anew.
//
// What can go wrong: accepting faults. The box tells, the edits stay on show, and nothing has been
// stored.
#pragma once

#include <memory>
#include <string>

#include "core/changes.h"
#include "platform/screen_ports.h"
#include "screens/parts/screen.h"
#include "screens/parts/unsaved_edits.h"

class QToolBar;

namespace tavernook {

class HandOverBar;
class ItemFormPane;
class ItemListPane;

namespace Ui {
class FoodInventory;
}

class FoodInventory : public Screen, public ports::FoodInventory, public UnsavedEdits {
    Q_OBJECT

  public:
    explicit FoodInventory(QWidget* parent = nullptr);
    ~FoodInventory() override;

    i16 getindex() override { return item_.now(); }
    void view_item(i16 item, i16 select) override;
    void set_return(i16 mode) override;
    void set_view(i16 view) override;
    void new_item() override;
    void add_barcode(std::string_view barcode) override;
    void accept_item(bool is_new) override;
    void delete_food_item() override;
    void initialize_inv() override;
    void populate_tree() override;
    void populate_Alpha() override;
    void refresh_quantity() override;
    void refresh_stores() override;
    void refresh_units() override;

    // Asks about edits that were not accepted yet; false when the user wants to stay with them.
    bool settle_edits() override;

  protected:
    void follow_changes() override;
    void update_commands() override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_toolbars();
    void set_up_tab_order();
    void set_up_keys();
    void connect_commands();
    void connect_panes();

    bool has_item() const { return is_new_ || item_.now() != 0; }
    bool has_edits() const;
    bool ask_about_edits();
    void show_item(i16 item);
    void show_nothing();
    void view(i16 item, bool select);
    void turn_to_chosen();
    void chosen_in_the_list();

    bool start_new_item();
    void store(bool is_new);
    void accept();
    void tell_other_screens(i16 item);
    void new_category();
    void remove();
    void copy_item_shown();
    void show_lots();
    void read_anew();
    void add_to_caller();
    void hand_over(i16 item, f64 quantity);
    void hide_screen();

    std::unique_ptr<Ui::FoodInventory> ui_;
    ItemListPane& list_;
    ItemFormPane& form_;
    HandOverBar& hand_over_bar_;

    RowRef item_;
    bool is_new_ = false;
    i16 return_mode_ = returns_nowhere;
    bool is_copying_ = false;
};

}  // namespace tavernook
