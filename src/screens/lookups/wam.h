// The household's reference card of weights and measures: kitchen conversions on one tab, up to 200
// lines of the user's own on the other. A line is picked in the list or begun by "New", typed into
// two fields, and stored by "Accept".
#pragma once

#include <memory>

#include "basics/values.h"
#include "core/changes.h"
#include "screens/parts/screen.h"

namespace tavernook {

class RowsModel;

namespace Ui {
class wam;
}

class wam : public Screen {
    Q_OBJECT

  public:
    explicit wam(QWidget* parent = nullptr);
    ~wam() override;

    void PopulateWamList();

  protected:
    void follow_changes() override;

  private:
    void set_up_lists();
    void connect_commands();

    void new_line();
    void accept_line();
    void delete_line();
    void pick(int row);
    void edit_line();
    void escape();

    i16 slot_to_write();  // 0 when there is none: the user has been told
    bool is_editing() const;
    void fill();
    void show_line(i16 slot);
    void select_line();
    void stop_editing();
    void set_fields(const QString& left, const QString& right);
    void show_mode();

    std::unique_ptr<Ui::wam> ui_;
    RowsModel* lines_;
    Seen seen_;
    RowRef current_;  // the line being edited, and the one that Delete deletes
    bool is_new_ = false;
    bool filling_ = false;  // what the list selects meanwhile is no pick of the user's
};

}  // namespace tavernook
