// Asks under which category a copy of an item goes, and makes it.
#pragma once

#include <QDialog>
#include <memory>

#include "basics/values.h"

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
    std::unique_ptr<Ui::copydialog> ui_;
    i16 item_ = 0;
};

}  // namespace tavernook
