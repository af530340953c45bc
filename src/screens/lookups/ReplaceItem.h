// Chooses what takes the place of an item, a store or a unit that is to be deleted and is still
// used. Everything that refers to the old row is moved to the chosen one.
#pragma once

#include <QDialog>
#include <memory>

#include "inventory/replacement.h"
#include "platform/screen_ports.h"

class QSortFilterProxyModel;

namespace tavernook {

class SlotRowsModel;

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
    i16 selected_row() const;  // 0 when none is selected
    void narrow(const QString& part);
    void replace_and_close();

    std::unique_ptr<Ui::ReplaceItem> ui_;
    SlotRowsModel* model_;
    QSortFilterProxyModel* shown_;
    i16 replace_slot_ = 0;
    ReplacementType type_ = ReplacementType::item;
};

// Answers the logic's question with the screen, modal over the window in front.
class ReplacementScreen : public ports::ReplaceItem {
  public:
    void ask_replacement(i16 row, i16 type) override;
};

}  // namespace tavernook
