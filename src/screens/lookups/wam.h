// The household's reference card of weights and measures: kitchen conversions on one tab, up to 200
// lines of the user's own on the other. A line is picked in the list or begun by "New", typed into
// two fields, and stored by "Accept". What was typed and not accepted is asked about before it
// would be dropped, by another pick, by "New", with the screen or the project; Esc takes it back
// without a question.
#pragma once

#include <memory>

#include "basics/values.h"
#include "core/changes.h"
#include "screens/parts/screen.h"
#include "screens/parts/unsaved_edits.h"

namespace tavernook {

class RowsModel;

namespace Ui {
class wam;
}

class wam : public Screen, public UnsavedEdits {
    Q_OBJECT

  public:
    explicit wam(QWidget* parent = nullptr);
    ~wam() override;

    void PopulateWamList();

    bool settle_edits() override;

  protected:
    void follow_changes() override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void set_up_lists();
    void connect_commands();

    void new_line();
    void accept_line();
    void delete_line();
    void turn_to(i16 slot);
    void pick(i16 slot);
    void edit_line();
    void escape();

    i16 slot_to_write();  // 0 when there is none: the user has been told
    bool is_editing() const;
    bool is_typed() const;   // what stands in the fields is not what was shown there
    bool has_edits() const;  // that could be accepted
    bool settle();
    void drop_edits();
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
    QString left_shown_, right_shown_;  // before anything was typed
    bool is_turning_ = false;           // a question about what was typed is on its way
    bool filling_ = false;              // what the list selects meanwhile is no pick of the user's
};

}  // namespace tavernook
