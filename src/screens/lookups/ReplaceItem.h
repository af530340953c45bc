// Chooses what takes the place of an item, a store or a unit that is to be deleted and is still
// used. Everything that refers to the old row is moved to the chosen one.
#pragma once

#include <QDialog>
#include <memory>

#include "core/changes.h"
#include "inventory/replacement.h"
#include "platform/screen_ports.h"
#include "screens/parts/guard.h"

namespace tavernook {

class RowsModel;

namespace Ui {
class ReplaceItem;
}

class ReplaceItem : public QDialog {
    Q_OBJECT

  public:
    explicit ReplaceItem(QWidget* parent);
    ~ReplaceItem() override;

    void set_type(i16 row, ReplacementType type);
    void populate_list();

    // Moves the references to the selected row; without one nothing happens.
    void replace_index();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_list();
    void connect_commands();
    void narrow();
    void fill();
    void replace_and_close();

    Steps steps_;
    std::unique_ptr<Ui::ReplaceItem> ui_;
    RowsModel* model_;
    ReplacementType type_ = ReplacementType::item;
    RowRef replaced_;
    RowRef chosen_;  // none: nothing is selected
};

// Answers the logic's question with the screen, modal over the window in front.
class ReplacementScreen : public ports::ReplaceItem {
  public:
    void ask_replacement(i16 row, i16 type) override;
};

}  // namespace tavernook
