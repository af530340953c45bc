#include "screens/pantry/copydialog.h"

#include <QPushButton>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"
#include "ui_copydialog.h"

namespace tavernook {

copydialog::copydialog(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::copydialog>()) {
    ui_->setupUi(this);
    QPushButton* ok = ui_->copy_buttons->button(QDialogButtonBox::Ok);
    QPushButton* cancel = ui_->copy_buttons->button(QDialogButtonBox::Cancel);
    ok->setObjectName(QStringLiteral("button_ok"));
    ok->setAccessibleName(tr("Make the copy"));
    ok->setDefault(true);
    cancel->setObjectName(QStringLiteral("button_cancel"));
    cancel->setAccessibleName(tr("Cancel"));
    connect(ui_->copy_catagories, &QListWidget::itemActivated, this, &copydialog::accept);
}

copydialog::~copydialog() = default;

void copydialog::set_index(i16 item) {
    item_ = item;
    const ItemRecord& source = items[item];
    ui_->copy_name->setText(shown_text(source.name.trimmed()));
    ui_->copy_catagories->clear();
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        if (!is_item_catagory(row)) continue;
        auto* line =
            new QListWidgetItem(shown_text(catagories[row].name.trimmed()), ui_->copy_catagories);
        line->setData(Qt::UserRole, int{row});
    }
    ui_->copy_catagories->sortItems();
    for (int place = 0; place < ui_->copy_catagories->count(); ++place) {
        const int row = ui_->copy_catagories->item(place)->data(Qt::UserRole).toInt();
        if (row == home_catagory(source.category)) ui_->copy_catagories->setCurrentRow(place);
    }
    ui_->copy_catagories->setFocus();
}

void copydialog::accept() {
    const QListWidgetItem* chosen = ui_->copy_catagories->currentItem();
    if (chosen == nullptr || items[item_].in_use != 1) return reject();
    const auto catagory = static_cast<i16>(chosen->data(Qt::UserRole).toInt());
    QDialog::accept();
    trap_in_screen([&] {
        const i16 copy = copy_item(item_, catagory);
        project_modified = i16_true;
        if (ports::FoodInventory* screen = food_inventory()) screen->view_item(copy, i16_true);
    });
}

}  // namespace tavernook
