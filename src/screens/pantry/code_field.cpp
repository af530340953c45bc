#include "screens/pantry/code_field.h"

#include "barcodes/scanned_code.h"
#include "barcodes/scanners.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/scan_entry.h"
#include "screens/parts/screen.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "ui_code_field.h"

namespace tavernook {

namespace {

void pick_on_scan_list() {
    if (show_screen(QStringLiteral("CS1504GETUPC")) == nullptr) return;
    if (ports::CS1504GETUPC* list = scan_list()) list->single_get();
}

}  // namespace

CodeField::CodeField(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::CodeField>()) {
    ui_->setupUi(this);
    ui_->Text13->set_collector(*ui_->Text14);
    connect(ui_->scan, &QPushButton::clicked, this, [this] { Q_EMIT command([this] { scan(); }); });
    connect(ui_->Text13, &ScanEntry::scanned, this,
            [this](const std::string& code) { static_cast<void>(take(code)); });
    connect(ui_->Text13, &ScanEntry::ended, this, &CodeField::show_text);
    show_code({});
}

CodeField::~CodeField() = default;

void CodeField::show_code(const std::string& code) {
    code_ = trim(code).empty() ? std::string(no_barcode) : std::string(trim(code));
    show_text();
}

bool CodeField::take(const std::string& code) {
    if (!is_scanning_) return false;
    const bool is_other = code != code_;
    show_code(code);
    const i16 bearer = find_scanned_item(code);
    if (is_other && bearer != 0) say(tr("%1 has this barcode already.").arg(item_name(bearer)));
    return true;
}

// The old code is out of sight for as long as the box for another one is open.
void CodeField::show_text() {
    ui_->barcode->setText(ui_->Text13->is_taking_one() ? QString() : shown_text(code_));
}

void CodeField::give_up_scanning() {
    is_scanning_ = false;
    if (ui_->Text13->is_taking_one()) ui_->scan->setFocus(Qt::OtherFocusReason);
}

void CodeField::scan() {
    is_scanning_ = true;
    if (scanner_type == batch_scanner) return pick_on_scan_list();
    ui_->Text13->take_one(*ui_->scan);
    show_text();
}

std::vector<QWidget*> CodeField::boxes_in_order() const {
    return {ui_->Text13, ui_->scan};
}

}  // namespace tavernook
