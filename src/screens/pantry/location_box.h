// One of the three parts of where an item stands. A comma separates the parts where they are
// stored, so none is taken in here: a comma that is typed does nothing, and of a text that comes in
// by paste or drop the rest is taken. The message panel says so. A part that was stored with
// commas, by another program say, is shown and stays as it is; what it had goes only where the user
// changes it.
#pragma once

#include <QLineEdit>

namespace tavernook {

class LocationBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit LocationBox(QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void leave_out_commas();

    QString before_;    // the last change
    QString as_shown_;  // before any edit; Undo may bring it back with all it has
    bool is_edit_ = false;
};

}  // namespace tavernook
