// Asks under which category a copy of an item goes, and makes it. The item and the category are
// taken anew when the user has chosen: either may have gone meanwhile, and then nothing is copied.
#pragma once

#include <QDialog>
#include <memory>

#include "basics/values.h"
#include "core/changes.h"
#include "screens/parts/guard.h"

namespace tavernook {

namespace Ui {
class copydialog;
}

class copydialog : public QDialog {
    Q_OBJECT

  public:
    explicit copydialog(QWidget* parent = nullptr);
    ~copydialog() override;

    void set_index(i16 item);
    void accept() override;

  private:
    void fill(i16 item);
    void make_copy(i16 catagory);

    std::unique_ptr<Ui::copydialog> ui_;
    RowRef item_;
    Steps steps_;
};

// Asks where the copy of the item goes, over that widget; the dialog goes when it is closed.
copydialog& open_copydialog(QWidget& over, i16 item);

}  // namespace tavernook
