// The screen of the shopping list: what has to be bought and what it costs, a list of everything
// that can be added, and the box for scanned codes.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/screen_ports.h"
#include "screens/parts/screen.h"

namespace tavernook {

class ListPane;
class PickPane;

namespace Ui {
class ShoppingList;
}

class ShoppingList : public Screen, public ports::ShoppingList {
    Q_OBJECT

  public:
    explicit ShoppingList(QWidget* parent = nullptr);
    ~ShoppingList() override;

    // The list anew, with its totals. Selection, scroll and sort stay.
    void populate_list() override;

    // The "Quick Pick List" anew, as far as its find box lets it through.
    void populate_list2() override;

    bool Build_HTMLlist(i16 size) override;

  protected:
    void follow_changes() override;
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    void set_up_toolbar();
    void set_up_keys();
    void connect_list();
    void connect_picks();

    void add_from_inventory();
    void remove_selected();
    void ask_about_item(const std::function<void(i16)>& question);
    void view_selected();
    void put_in_stock();
    void save_list();
    void load_list();
    void escape();

    // What comes on the list.
    void add(i16 item);
    void add_ingredients(i16 recipe);
    void take_drop(const QString& text);
    void take_code(const std::string& code);

    // The item that a command is about; 0, told in the message panel, when it has gone.
    i16 selected_item() const;

    std::unique_ptr<Ui::ShoppingList> ui_;
    ListPane& list_;
    PickPane& picks_;
};

}  // namespace tavernook
