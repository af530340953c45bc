// The list of items: by category or as one list, with the box to find them by.
#pragma once

#include <memory>
#include <vector>

#include "core/changes.h"
#include "screens/parts/catagory_tree_pane.h"

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

    std::vector<QWidget*> boxes_in_order() const;

    // Under the mouse or the marked row. Between the commands of the screen stands what belongs to
    // the tree itself.
    struct MenuCommands {
        QAction* new_item;
        QAction* new_category;
        QAction* copy;
        QAction* remove;
    };
    void show_menu(const QPoint& on_screen, const MenuCommands& commands);

  private:
    void set_up_columns();
    void read(View view);

    std::unique_ptr<Ui::ItemListPane> ui_;
    Seen seen_{Subject::items, Subject::lots, Subject::units, Subject::catagories,
               Subject::settings};
};

}  // namespace tavernook
