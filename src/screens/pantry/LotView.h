// The lots of one item: what is in stock, since when and until when, and the commands that change
// it by hand. They work on the selected lot.
//
// The screen holds its item as a RowRef and follows it: renamed with it, its stock as it moves, and
// empty with a line that says so when the item has gone, also when its slot holds another item by
// then. A box and the calendar stand open while other things happen; behind them the item is taken
// anew.
#pragma once

#include <functional>
#include <memory>

#include "basics/values.h"
#include "core/changes.h"
#include "screens/pantry/lot_rows.h"
#include "screens/parts/screen.h"

class QAction;
class QDate;
class QPushButton;

namespace tavernook {

class DatePopup;
class RowsModel;

// Opens the screen for this item, or turns the open one to it.
void show_lot_view(i16 item);

namespace Ui {
class LotView;
}

class LotView : public Screen {
    Q_OBJECT

  public:
    explicit LotView(QWidget* parent = nullptr);
    ~LotView() override;

    // The item's lots with the current one selected. The caption follows.
    void set_index(i16 item);
    i16 index() const { return item_.now(); }  // 0 when it has gone

    // The selection stays. A box tells when the lots cannot be shown.
    void populate_list();

    // The commands; nothing without a selected lot.
    void ModQuantity();
    void ModCreationDate();
    void ModExpirationDate();
    void set_current();
    void DeleteLot();

  protected:
    void follow_changes() override;
    void update_commands() override;

  private:
    enum class EditedDate { creation, expiration };

    void set_up_list();
    void connect_commands();
    void bind(QAction* action, QPushButton* button, void (LotView::*command)());

    i16 selected_place() const;  // -1 when none is selected
    void select_place(i16 place);
    void fill_list();
    void show_total(i16 item);

    void on_selected_lot(const std::function<void(i16 place)>& command);
    void ask_quantity(i16 place);
    void ask_date(EditedDate which, i16 place);
    void take_date(const QDate& day);
    void escape();
    void show_popup(const QPoint& place);

    std::unique_ptr<Ui::LotView> ui_;
    LotRows lots_shown_;
    RowsModel* model_;
    DatePopup* calendar_;
    EditedDate edited_date_ = EditedDate::creation;
    RowRef item_;
    Seen seen_{Subject::lots, Subject::items, Subject::units};
};

}  // namespace tavernook
