// The screen of the shopping list: what has to be bought and what it costs, a list of everything
// that can be added, and the box for scanned codes.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/screen_ports.h"

class QAction;
class QKeyEvent;
class QTreeView;

namespace tavernook {

class ShoppingRowsModel;

namespace Ui {
class ShoppingList;
}

class ShoppingList : public QWidget, public ports::ShoppingList {
    Q_OBJECT

  public:
    explicit ShoppingList(QWidget* parent = nullptr);
    ~ShoppingList() override;

    // The list anew, with its totals. Selection, scroll and sort stay.
    void populate_list() override;

    // The "Quick Pick List" anew, as far as its find box lets it through.
    void populate_list2() override;

  protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_toolbar();
    void set_up_list();
    void set_up_columns();
    void set_up_pick_list();
    void set_up_footer();
    void set_up_scanning();
    void set_up_keys();
    void connect_commands();
    void on_command(QAction* action, void (ShoppingList::*command)());

    // The list.
    void fill_list();
    void fill_list2();
    void show_totals();
    std::vector<i16> selected_items() const;
    void select_item(i16 item);
    void follow_selection();
    void follow_focus(const QWidget* before, const QWidget* now);
    void show_popup();
    void escape();

    // Columns and sort.
    void fit_names();
    void switch_column(int column, bool shown);
    void follow_header();
    void recall_sort();
    void store_sort();

    // Commands.
    void add_from_inventory();
    void remove_selected();
    void ask_quantity();
    void ask_store_order();
    void ask_about_item(const std::function<void(i16)>& question);
    void view_row();
    void put_in_stock();

    // What comes on the list.
    void add(i16 item);
    void add_picked();
    void take_drop(const QString& text);
    void show_pick_tip(const QModelIndex& index);
    bool find_key(QKeyEvent& key);

    // Scanning.
    void take_code(const std::string& code);
    void follow_scanner();

    std::unique_ptr<Ui::ShoppingList> ui_;
    ShoppingRowsModel* rows_;
    ShoppingRowsModel* picks_;
};

}  // namespace tavernook
