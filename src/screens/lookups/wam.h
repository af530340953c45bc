// The household's reference card of weights and measures: kitchen conversions on one tab, up to 200
// lines of the user's own on the other. A line is picked in the list or begun by "New", typed into
// two fields, and stored by "Accept".
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "basics/values.h"

namespace tavernook {

class SlotRowsModel;

namespace Ui {
class wam;
}

class wam : public QWidget {
    Q_OBJECT

  public:
    explicit wam(QWidget* parent = nullptr);
    ~wam() override;

    void PopulateWamList();

  private:
    void set_up_lists();
    void connect_commands();

    void new_line();
    void accept_line();
    void delete_line();
    void pick(int row);
    void edit_line();
    void escape();

    // Works on the list without taking what it selects meanwhile for a pick of the user's.
    void quietly(const std::function<void()>& work);
    void select_line();
    void set_fields(const QString& left, const QString& right);
    void show_mode();

    std::unique_ptr<Ui::wam> ui_;
    SlotRowsModel* wam_slots_;  // the slot of each row
    i16 current_wam_ = 0;       // the line being edited, and the one that Delete deletes
    i16 wam_is_new_ = i16_false;
    bool quiet_ = false;
};

}  // namespace tavernook
