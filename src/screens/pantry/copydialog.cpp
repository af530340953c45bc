#include "screens/pantry/copydialog.h"

#include <QPushButton>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "screens/parts/screen.h"
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
    item_ = RowRef(Subject::items, item);
    guarded([&] { fill(item); });
    ui_->copy_catagories->setFocus();
}

void copydialog::fill(i16 item) {
    const ItemRecord& source = row_or_none(items, item);
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
}

void copydialog::accept() {
    const QListWidgetItem* chosen = ui_->copy_catagories->currentItem();
    if (chosen == nullptr) return reject();
    const auto catagory = static_cast<i16>(chosen->data(Qt::UserRole).toInt());
    QDialog::accept();
    steps_.run([this, catagory] { make_copy(catagory); });
}

void copydialog::make_copy(i16 catagory) {
    const i16 item = item_.now();
    if (item == 0) return say(tr("The item has been deleted; nothing was copied."));
    const i16 copy = copy_item(item, home_catagory(catagory));
    if (copy == 0) return;
    project_modified = i16_true;
    if (ports::FoodInventory* screen = food_inventory()) screen->view_item(copy, i16_true);
}

copydialog& open_copydialog(QWidget& over, i16 item) {
    auto* dialog = new copydialog(&over);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->set_index(item);
    dialog->open();
    return *dialog;
}

}  // namespace tavernook
