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
    connect(ui_->Text13, &ScanEntry::ended, this, &CodeField::show_text);
    show_code({});
    follow_scanner_type();
}

CodeField::~CodeField() = default;

void CodeField::show_code(const std::string& code) {
    code_ = trim(code).empty() ? std::string(no_barcode) : std::string(trim(code));
    show_text();
}

void CodeField::take(const std::string& code) {
    if (is_scanning_) show_code(code);
}

// The old code is out of sight for as long as the box for another one is open.
void CodeField::show_text() {
    ui_->barcode->setText(ui_->Text13->is_taking_one() ? QString() : shown_text(code_));
}

void CodeField::give_up_scanning() {
    is_scanning_ = false;
    if (ui_->Text13->is_taking_one()) ui_->scan->setFocus(Qt::OtherFocusReason);
}

void CodeField::follow_scanner_type() {
    const bool later = scanner_type == batch_scanner;
    ui_->scan->setEnabled(!later);
    ui_->scan->setToolTip(later ? tr("Reading from this scanner is not available in this version.")
                                : tr("Reads or asks for the barcode of this item."));
}

void CodeField::scan() {
    follow_scanner_type();
    is_scanning_ = true;
    ui_->Text13->take_one(*ui_->scan);
    show_text();
}

std::vector<QWidget*> CodeField::boxes_in_order() const {
    return {ui_->Text13, ui_->scan};
}

}  // namespace tavernook
