#include "screens/scanning/BCGEN.h"

#include <QMetaObject>

#include "barcodes/code39.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "ui_BCGEN.h"

namespace tavernook {

namespace {

QString name_of(const BarcodeOnShow& shown) {
    const i16 number = shown.of.now();
    return shown_text(shown.is_meal ? row_or_none(meals, number).name.right_trimmed()
                                    : row_or_none(items, number).name.right_trimmed());
}

QString hint_for(const std::string& code, const BarcodeOnShow& shown) {
    if (shown.of.now() == 0) {
        return shown.is_meal ? tr("The recipe has been deleted.")
                             : tr("The item has been deleted.");
    }
    if (code.empty()) return tr("The item has no barcode any more.");
    if (shown.is_meal || is_read_back(code)) return {};
    return tr(
        "Scanners read another code here: such a barcode cannot hold small letters, stars or "
        "signs other than - . $ / + %.");
}

}  // namespace

BCGEN::BCGEN(QWidget* parent) : Screen(parent), ui_(laid_out<Ui::BCGEN>(*this)) {
    setWindowIcon(icon(QStringLiteral("barcodes")));
    setFocusProxy(ui_->close_button);
    on_command(ui_->close_button, [this] { close_screen(*this); });
    on_keys(*this, Qt::Key_Escape, [this] { ui_->close_button->click(); });
    enter_presses_buttons(*this);
    shown_ = barcode_on_show;
    show_code(present_code());
}

BCGEN::~BCGEN() = default;

void BCGEN::follow_changes() {
    if (!seen_.is_stale() && shown_ == barcode_on_show) return;
    seen_.renew();
    shown_ = barcode_on_show;
    const std::string code = present_code();
    show_code(code);
    if (!code.empty() && code != shown_.code) save_later();
}

// As a step of its own, since it may show a box.
void BCGEN::save_later() {
    QMetaObject::invokeMethod(
        this, [this] { run([] { renew_barcode_on_show(); }); }, Qt::QueuedConnection);
}

void BCGEN::show_code(const std::string& code) {
    const QString hint = hint_for(code, shown_);
    const bool is_saved = !shown_.file.empty() && code == shown_.code;
    ui_->name_label->setText(name_of(shown_));
    ui_->bars->setVisible(!code.empty());
    ui_->code_label->setVisible(!code.empty());
    if (!code.empty()) ui_->bars->show_picture(barcode_picture(code));
    ui_->bars->setAccessibleName(tr("Barcode %1").arg(shown_text(code)));
    ui_->code_label->setText(shown_text(code));
    ui_->hint_label->setText(hint);
    ui_->hint_label->setVisible(!hint.isEmpty());
    ui_->file_label->setText(is_saved ? tr("Saved as %1").arg(shown_path(shown_.file))
                                      : tr("The picture with this code is not saved."));
    ui_->file_label->setVisible(!code.empty());
}

}  // namespace tavernook
