// The ingredients of the recipe on show, with the buttons beside them. What a button, a key or a
// drop asks for is told; the screen does it.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "recipes/roll_up.h"
#include "screens/parts/rows_model.h"

namespace tavernook {

namespace Ui {
class IngredientsPane;
}

class IngredientsPane : public QWidget {
    Q_OBJECT

  public:
    enum Column { name_column, amount_column };

    explicit IngredientsPane(QWidget* parent = nullptr);
    ~IngredientsPane() override;

    // In their order; the marked ingredient stays marked.
    void show_lines(std::vector<IngredientLine> lines);

    // Without a recipe nothing can be added, and the list says so.
    void set_has_recipe(bool has_recipe);

    // 0 and the empty key while none is marked. The key is the item's number + "t".
    i16 marked_item() const;
    std::string marked_key() const;

    std::vector<QWidget*> parts_in_order() const;

  Q_SIGNALS:
    void add_wanted();
    void quantity_wanted();
    void open_wanted();
    void remove_wanted();
    void item_dropped(i16 item);

  private:
    void set_up_list();
    void set_up_keys();
    void tell_of_buttons();
    void update_buttons();
    void show_menu(const QPoint& place);
    RowId marked_row() const;
    const IngredientLine& line(RowId row) const;

    std::unique_ptr<Ui::IngredientsPane> ui_;

    // A row is an item and how often it has stood above: a file may hold an item twice.
    std::vector<std::pair<RowId, IngredientLine>> lines_;
    RowsModel* model_;
    bool has_recipe_ = false;
};

}  // namespace tavernook
