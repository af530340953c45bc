// The stores that items are bought in.
#pragma once

#include "screens/lookups/name_rows_form.h"

namespace tavernook {

class StoresForm : public NameRowsForm {
    Q_OBJECT

  public:
    explicit StoresForm(QWidget* parent = nullptr);
};

}  // namespace tavernook
