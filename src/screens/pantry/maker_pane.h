// Who makes an item, and what there is to say of it: texts of any length.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "basics/values.h"

namespace tavernook {

class FormFields;
struct ItemValues;

namespace Ui {
class MakerPane;
}

class MakerPane : public QWidget {
    Q_OBJECT

  public:
    explicit MakerPane(QWidget* parent = nullptr);
    ~MakerPane() override;

    void add_fields(FormFields& fields);

    // A text that stands as it was shown is the stored one, line ends and all; item 0 has none.
    void read(ItemValues& values, i16 item) const;

    std::vector<QWidget*> boxes_in_order() const;

  private:
    std::unique_ptr<Ui::MakerPane> ui_;
};

}  // namespace tavernook
