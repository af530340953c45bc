// The lots of one item: what is in stock, since when and until when, and the commands that change
// it by hand. They work on the selected lot.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "basics/values.h"

class QAction;
class QCalendarWidget;
class QDate;
class QFrame;
class QLabel;
class QMenu;
class QPushButton;
class QSortFilterProxyModel;

namespace tavernook {

class LotsModel;

// Opens the screen for this item, or turns the open one to it.
void show_lot_view(i16 item);

namespace Ui {
class LotView;
}

class LotView : public QWidget {
    Q_OBJECT

  public:
    explicit LotView(QWidget* parent = nullptr);
    ~LotView() override;

    // The item's lots with the current one selected. The caption follows.
    void set_index(i16 item);
    i16 index() const { return item_; }

    // The selection stays. A box tells when the lots cannot be shown.
    void populate_list();

    void ModQuantity();
    void ModCreationDate();
    void ModExpirationDate();
    void set_current();
    void DeleteLot();

  private:
    enum class EditedDate { none, creation, expiration };

    void set_up_list();
    void set_up_calendar();
    void connect_commands();
    void bind(QAction* action, QPushButton* button, void (LotView::*command)());

    i16 selected_place() const;  // -1 when none is selected
    void select_place(i16 place);
    void change(const std::function<void()>& work);
    void ask_date(EditedDate which);
    void take_date(const QDate& day);
    void escape();
    void show_popup();
    void follow_focus(const QWidget* before, const QWidget* now);
    void follow_selection();
    void fill_list();
    void show_total();

    std::unique_ptr<Ui::LotView> ui_;
    LotsModel* model_;
    QSortFilterProxyModel* sorted_;
    QFrame* calendar_box_;
    QLabel* calendar_label_;
    QCalendarWidget* calendar_;
    EditedDate edited_date_ = EditedDate::none;
    i16 item_ = 0;
};

}  // namespace tavernook
