// The form of an item: what stands in its boxes, and back from there. It knows no more of the item
// than it is told: shown whole (`show_item`), followed as the item changes (`follow`), read
// (`values`), and whether the user has changed something. What to do with all that is its screen's.
//
// What can go wrong: an item that cannot be told, a damaged date. Nothing is on show then, and the
// Fault goes on to the screen, which has no item on show either. While the form follows an item, a
// Fault leaves the box at hand and those behind it as they were: nothing that was typed is lost.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "core/changes.h"
#include "inventory/items.h"
#include "screens/pantry/form_fields.h"
#include "screens/parts/guard.h"

class QComboBox;
class QStringListModel;

namespace tavernook {

namespace Ui {
class ItemFormPane;
}

class ItemFormPane : public QWidget {
    Q_OBJECT

  public:
    explicit ItemFormPane(QWidget* parent = nullptr);
    ~ItemFormPane() override;

    // A live item that has its lots. A new one has a name, a category and no barcode so far.
    void show_item(i16 item);
    void show_new_item(const std::string& name, i16 catagory);
    void show_nothing();

    // The untouched boxes show the item as it is now; 0, for a new item or none, leaves them. The
    // lists of names, and what else stands around the boxes, is drawn anew in any case.
    void follow(i16 item);

    // The same at the end of a step, where something has changed that is shown here.
    void follow_changes(i16 item);

    bool is_edited() const { return fields_.is_edited(); }

    // What update_item makes of the item, or create_item of a new one (0). Texts and figures that
    // were not touched are the stored ones, to the last bit.
    ItemValues values(i16 item) const;

    std::string name() const;
    void set_code(const std::string& code);

    // A code that "Scan" was pressed for; told when none is waited for any more.
    void take_code(const std::string& code);

    // The lists in the boxes.
    void refresh_units();
    void refresh_stores();

    void go_to_name();
    void rename();             // with all of it selected
    void go_to_first_blank();  // of a new item
    std::vector<QWidget*> boxes_in_order() const;

  Q_SIGNALS:
    void command(const tavernook::Work& work);  // for the screen to run
    void lots_wanted();
    void left_at_the_end();  // Enter in the last box

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class On { nothing, new_item, item };

    void set_up_boxes();
    void add_fields();
    void add_names_and_numbers();
    void add_locations();
    void connect_boxes();

    void put_on(On shown);
    void show_dates(i16 item);
    void update_labels();
    std::vector<QComboBox*> unit_boxes() const;
    void go_to_next_box(QWidget* box);

    std::unique_ptr<Ui::ItemFormPane> ui_;
    FormFields fields_;
    QStringListModel* unit_names_;
    QStringListModel* store_names_;
    On on_ = On::nothing;
    RowRef item_;  // that was shown last
    Seen seen_{Subject::items,  Subject::lots,       Subject::units,
               Subject::stores, Subject::catagories, Subject::settings};
};

}  // namespace tavernook
