// The units in which items are counted and served.
#pragma once

#include "screens/lookups/name_rows_form.h"

namespace tavernook {

class UnitsForm : public NameRowsForm {
    Q_OBJECT

  public:
    explicit UnitsForm(QWidget* parent = nullptr);
};

}  // namespace tavernook
