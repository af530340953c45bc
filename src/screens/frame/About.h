// What this program is.
#pragma once

#include <QDialog>

namespace tavernook {

class About : public QDialog {
    Q_OBJECT

  public:
    explicit About(QWidget* parent);
};

}  // namespace tavernook
