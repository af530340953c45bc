#include "screens/parts/scan_entry.h"

#include <QKeyEvent>

#include "barcodes/scanners.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

bool is_digit(const QString& text) {
    return text.size() == 1 && text[0] >= QLatin1Char('0') && text[0] <= QLatin1Char('9');
}

}  // namespace

ScanEntry::ScanEntry(QWidget* parent) : QLineEdit(parent) {
    follow_scanner_type();
}

bool ScanEntry::is_typed_into() {
    return scanner_type == keyboard_wedge || scanner_type == cue_cat;
}

void ScanEntry::follow_scanner_type() {
    setPlaceholderText(scanner_type == no_scanner      ? tr("Press Enter to type a code")
                       : scanner_type == batch_scanner ? tr("This scanner is read on the scan list")
                                                       : tr("Scan a barcode"));
}

void ScanEntry::discard() {
    clear();
    if (!collector_.isNull()) collector_->clear();
}

bool ScanEntry::take_first_key(const QKeyEvent& key) {
    const auto others = key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (others != Qt::NoModifier) return false;
    const bool stop = key.text() == QLatin1String(".") && !collector_.isNull();
    const bool digit = is_digit(key.text()) && scanner_type == keyboard_wedge;
    if (!stop && !digit) return false;
    setFocus(Qt::OtherFocusReason);
    deselect();
    end(false);
    if (stop) {
        collector_->setText(collector_->text() + key.text());
    } else {
        insert(key.text());
    }
    return true;
}

bool ScanEntry::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool plain = key.modifiers() == Qt::NoModifier;
        if (plain && key.key() == Qt::Key_Tab && is_typed_into() && !text().isEmpty()) {
            finish();
            return true;
        }
    }
    return QLineEdit::event(event);
}

void ScanEntry::keyPressEvent(QKeyEvent* event) {
    if (is_enter(*event)) {
        finish();
    } else if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        discard();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

// A full stop that was held for a code which never came would spoil the next one.
void ScanEntry::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool comes_back =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!comes_back && text().isEmpty()) discard();
}

void ScanEntry::finish() {
    if (scanner_type == no_scanner) return ask();
    if (!is_typed_into()) return;
    const QString line = (collector_.isNull() ? QString() : collector_->text()) + text();
    discard();
    take_line(line);
}

void ScanEntry::take_line(const QString& line) {
    trap_in_screen([&] {
        const std::string typed = typed_text(line);
        if (trim(typed).empty()) return;
        const std::string code = code_in_line(typed);
        if (code.empty()) {
            Q_EMIT unreadable();
        } else {
            Q_EMIT scanned(code);
        }
    });
}

// What was typed already stands in the box that asks.
void ScanEntry::ask() {
    trap_in_screen([this] {
        const QPointer<ScanEntry> still_here(this);
        const std::string typed = typed_text(text());
        const auto code = boxes().input("Enter Barcode", "Barcode Entry", typed);
        if (still_here.isNull() || !code) return;
        discard();
        if (!trim(*code).empty()) Q_EMIT scanned(std::string(trim(*code)));
    });
}

}  // namespace tavernook
