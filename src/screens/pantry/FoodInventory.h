// The screen on which items are seen and edited: the list of the items, the form of the one on
// show (item_on_show.h tells how it gets there), and the commands. Other screens open it to pick an
// item, in a return mode.
//
// Each command is a step; the list and the form follow what it has changed, wherever it came from.
// What is marked in the list and what is on show are the same thing as long as the user moves in
// the list; a category that is marked empties the form.
#pragma once

#include <memory>

#include "platform/screen_ports.h"
#include "screens/pantry/item_on_show.h"
#include "screens/parts/screen.h"
#include "screens/parts/unsaved_edits.h"

namespace tavernook {

class HandOverBar;
class ItemListPane;

namespace Ui {
class FoodInventory;
}

class FoodInventory : public Screen, public ports::FoodInventory, public UnsavedEdits {
    Q_OBJECT

  public:
    explicit FoodInventory(QWidget* parent = nullptr);
    ~FoodInventory() override;

    i16 getindex() override { return item_.number(); }
    void view_item(i16 item, i16 select) override;
    void set_return(i16 mode) override;
    void set_view(i16 view) override;
    void new_item() override {
        serve([this] { start_new_item(); });
    }
    void add_barcode(std::string_view barcode) override;
    void take_barcode(std::string_view barcode) override;
    void accept_item(bool is_new) override;
    void delete_food_item() override {
        serve([this] { remove(); });
    }
    void initialize_inv() override {
        serve([this] { show_no_item(); });
    }
    void populate_tree() override { set_view(0); }
    void populate_Alpha() override { set_view(1); }
    void refresh_quantity() override;
    void refresh_stores() override { refresh_quantity(); }
    void refresh_units() override { refresh_quantity(); }

    // Asks about edits that were not accepted yet; false when the user wants to stay with them.
    bool settle_edits() override;

  protected:
    void follow_changes() override;
    void update_commands() override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void order_tabs();
    void connect_keys();
    void connect_commands();
    void connect_panes();

    void serve(const Work& what_is_asked);
    void view(i16 item, bool select);
    void show_no_item(const QString& marked = {});
    void chosen_in_the_list();
    void turn_to_chosen();

    bool start_new_item();
    void accept();
    void new_category();
    void remove();
    void settled(const std::function<void(i16 item)>& command);
    void copy_item_shown();
    void add_to_caller();
    void hide_screen();

    std::unique_ptr<Ui::FoodInventory> ui_;
    ItemListPane& list_;
    ItemFormPane& form_;
    HandOverBar& hand_over_bar_;

    ItemOnShow item_;
    i16 return_mode_ = returns_nowhere;
    bool is_copying_ = false;
};

}  // namespace tavernook
