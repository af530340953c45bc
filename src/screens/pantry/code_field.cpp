#include "screens/pantry/code_field.h"

#include "barcodes/scanners.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "screens/parts/scan_entry.h"
#include "screens/parts/shown_text.h"
#include "ui_code_field.h"

namespace tavernook {

CodeField::CodeField(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::CodeField>()) {
    ui_->setupUi(this);
    ui_->Text13->set_collector(*ui_->Text14);
    connect(ui_->scan, &QPushButton::clicked, this, [this] { Q_EMIT command([this] { scan(); }); });
    connect(ui_->Text13, &ScanEntry::scanned, this, &CodeField::take);
    connect(ui_->Text13, &ScanEntry::ended, this,
            [this] { ui_->barcode->setText(shown_text(code_)); });
    take({});
    follow_scanner_type();
}

CodeField::~CodeField() = default;

void CodeField::show_code(const std::string& code) {
    if (ui_->Text13->is_taking_one()) ui_->scan->setFocus(Qt::OtherFocusReason);
    take(code);
}

void CodeField::take(const std::string& code) {
    code_ = trim(code).empty() ? std::string(no_barcode) : std::string(trim(code));
    ui_->barcode->setText(shown_text(code_));
}

void CodeField::follow_scanner_type() {
    const bool later = scanner_type == batch_scanner;
    ui_->scan->setEnabled(!later);
    ui_->scan->setToolTip(later ? tr("Reading from this scanner is not available in this version.")
                                : tr("Reads or asks for the barcode of this item."));
}

// The old code is out of sight for as long as the box is open.
void CodeField::scan() {
    follow_scanner_type();
    if (!ui_->scan->isEnabled()) return;
    if (ScanEntry::is_typed_into()) ui_->barcode->clear();
    ui_->Text13->take_one(*ui_->scan);
}

std::vector<QWidget*> CodeField::boxes_in_order() const {
    return {ui_->Text13, ui_->scan};
}

}  // namespace tavernook
