// The list of items: by category or as one list, with the box to find them by.
#pragma once

#include <memory>
#include <vector>

#include "core/changes.h"
#include "screens/parts/catagory_tree_pane.h"
#include "screens/parts/guard.h"

namespace tavernook {

namespace Ui {
class ItemListPane;
}

class ItemListPane : public CatagoryTreePane {
    Q_OBJECT

  public:
    explicit ItemListPane(QWidget* parent = nullptr);
    ~ItemListPane() override;

    // The button reads "Normal" over the tree and "List" over the list. A box of its own tells when
    // the items cannot be read; what was shown stays.
    void set_view(View view);
    void refresh();

    // Not while a category is being named in the tree.
    void follow_changes();

    void mark_item(i16 item);  // 0: nothing
    void mark_catagory(i16 row);
    void set_item_on_show(i16 item);  // marked again whenever another filter shows it

    std::vector<QWidget*> boxes_in_order() const;

    // The screen's part of the menu over the tree.
    struct MenuCommands {
        QAction* new_item;
        QAction* new_category;
        QAction* copy;
        QAction* remove;
        QAction* count_texts;
    };
    void set_menu(const MenuCommands& commands);

  Q_SIGNALS:
    void command(const tavernook::Work& work);  // of the marked item, for the screen to run

  private:
    void set_up_columns();
    void read(View view);
    void show_menu(const QPoint& on_screen, const MenuCommands& commands);

    std::unique_ptr<Ui::ItemListPane> ui_;
    QAction* barcode_picture_;
    Seen seen_{Subject::items, Subject::lots, Subject::units, Subject::catagories,
               Subject::settings};
};

}  // namespace tavernook
