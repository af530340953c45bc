// The "Quick Pick List": everything that can be put on the shopping list, and the box that finds it
// by parts of its name.
#pragma once

#include <QWidget>
#include <memory>

#include "core/changes.h"
#include "screens/parts/rows_model.h"

class QKeyEvent;
class QTreeView;

namespace tavernook {

namespace Ui {
class PickPane;
}

class PickPane : public QWidget {
    Q_OBJECT

  public:
    explicit PickPane(QWidget* parent = nullptr);
    ~PickPane() override;

    // The items anew, as far as the find box lets them through.
    void fill();
    void follow_changes();

    void wait_for_names(Qt::FocusReason reason);  // the find box takes the focus
    void find();                                  // and all of its text is selected
    bool show_all();                              // false when nothing stands in the find box

    // For others to name; it is filled by this pane alone.
    QWidget& list() const;

  Q_SIGNALS:
    void picked(short item);               // none that lives, perhaps, any more
    void code_typed(const QString& line);  // a scanner has typed it into the find box
    void close_wanted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_list();
    void narrow();
    void pick();
    void show_tip(const QModelIndex& index);
    bool take_key(const QKeyEvent& key);
    void move_mark(int rows);
    bool take_code();

    std::unique_ptr<Ui::PickPane> ui_;
    RowsModel* rows_;
    QTreeView& list_;
    Seen seen_;
};

}  // namespace tavernook
