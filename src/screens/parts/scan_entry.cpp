#include "screens/parts/scan_entry.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <algorithm>
#include <utility>

#include "barcodes/scanned_code.h"
#include "barcodes/scanners.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/parts/guard.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

constexpr QLatin1Char full_stop('.');
constexpr int digits_kept = 4;
constexpr int letters_kept = 32;  // as many as a code has

bool is_digit(QChar letter) {
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
}

bool is_part_of_letter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Shift || key.key() == Qt::Key_CapsLock;
}

// The one character that the key writes; null for every other key.
QChar written(const QKeyEvent& key) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = key.text();
    const bool one = text.size() == 1 && (key.modifiers() & commands) == Qt::NoModifier;
    return one && text[0].isPrint() && !text[0].isSpace() ? text[0] : QChar();
}

bool is_among(const std::vector<QWidget*>& parts, const QWidget& part) {
    return std::find(parts.begin(), parts.end(), &part) != parts.end();
}

bool is_box_of_text(const QWidget& part) {
    if (const auto* choices = qobject_cast<const QComboBox*>(&part)) return choices->isEditable();
    return qobject_cast<const QLineEdit*>(&part) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&part) != nullptr ||
           qobject_cast<const QTextEdit*>(&part) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&part) != nullptr;
}

QLineEdit* line_of(QWidget& part) {
    auto* line = qobject_cast<QLineEdit*>(&part);
    return line != nullptr ? line : part.findChild<QLineEdit*>();
}

bool names_something(const QString& code) {
    return meaning_of_code(typed_text(code)).known();
}

// How many of these are a code's for certain: digits, and the letters of a recipe's code.
qsizetype sure_part(const QString& kept) {
    const QLatin1String recipe("tvk");
    if (kept.endsWith(recipe, Qt::CaseInsensitive)) return recipe.size();
    return !kept.isEmpty() && is_digit(kept.front()) ? kept.size() : 0;
}

std::optional<std::string> asked_code(const QString& typed) {
    std::optional<std::string> code;
    guarded([&] {
        say(std::string_view());
        code = boxes().input("Enter Barcode", "Barcode Entry", typed_text(typed));
    });
    if (code) code = std::string(trim(*code));
    return code;
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
                       : scanner_type == batch_scanner ? batch_hint_
                                                       : tr("Scan a barcode"));
}

void ScanEntry::set_batch_hint(const QString& hint) {
    batch_hint_ = hint;
    follow_scanner_type();
}

void ScanEntry::discard() {
    kept_.clear();
    letters_.clear();
    clear();
    if (!collector_.isNull()) collector_->clear();
}

void ScanEntry::abandon() {
    kept_.clear();
    if (is_typed_into() || text().isEmpty()) discard();
}

bool ScanEntry::has_begun() const {
    return !text().isEmpty() || !held().isEmpty();
}

// --- the first key, typed elsewhere ------------------------------------------------------------

void ScanEntry::watch(QWidget& screen, const Keeps& keeps) {
    keeps_ = keeps;
    for (QWidget* part : screen.findChildren<QWidget*>()) {
        const bool keeps_all = is_box_of_text(*part) && !is_among(keeps_.keeps_digits, *part);
        if (part->focusPolicy() != Qt::NoFocus && !keeps_all) part->installEventFilter(this);
    }
}

bool ScanEntry::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) kept_.clear();
    if (event->type() == QEvent::MouseButtonPress && watched != this) abandon();
    if (event->type() == QEvent::KeyPress && watched != this &&
        take_key_of(static_cast<QWidget&>(*watched), *static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QLineEdit::eventFilter(watched, event);
}

// True when the key is not for the part any more. A scanner that is no keyboard, or none, types
// nowhere: its users' keys are their own, but for the full stop.
bool ScanEntry::take_key_of(QWidget& part, const QKeyEvent& key) {
    const QChar letter = written(key);
    if (letter.isNull()) return take_letters_of(part, key);
    const bool stop = letter == full_stop;
    if (!stop && scanner_type != keyboard_wedge) return false;
    if (is_digit(letter) && is_among(keeps_.keeps_digits, part)) return take_digit_of(part, letter);
    if (!stop && !is_digit(letter) && is_among(keeps_.keeps_letters, part)) {
        kept_ = (kept_ + letter).right(letters_kept);
        return false;
    }
    const bool keeps_digits = is_among(keeps_.keeps_digits, part);
    if (keeps_digits && !kept_.isEmpty()) line_of(part)->setText(text_before_);
    begin(letter);
    return true;
}

// A key that writes nothing: the end of a code of letters alone, or of letters that were none.
bool ScanEntry::take_letters_of(const QWidget& part, const QKeyEvent& key) {
    if (is_part_of_letter(key)) return false;
    const QString letters = std::exchange(kept_, {});
    const bool ends_code = is_enter(key) || key.key() == Qt::Key_Tab;
    if (!ends_code || !is_among(keeps_.keeps_letters, part) || !names_something(letters)) {
        return false;
    }
    take_line(letters);
    return true;
}

bool ScanEntry::take_digit_of(QWidget& part, QChar digit) {
    if (kept_.isEmpty()) text_before_ = line_of(part)->text();
    if (kept_.size() < digits_kept) {
        kept_ += digit;
        return false;
    }
    line_of(part)->setText(text_before_);
    begin(digit);
    return true;
}

// A full stop waits in the hold box; everything else stands in sight.
void ScanEntry::begin(const QString& first) {
    const QString before = kept_;
    const QString shown = before.right(sure_part(before));
    if (!hasFocus()) {
        discard();
        letters_ = before.chopped(shown.size());
        setFocus(Qt::OtherFocusReason);
    }
    kept_.clear();
    deselect();
    end(false);
    insert(shown);
    if (first == full_stop && !collector_.isNull()) {
        collector_->setText(collector_->text() + first);
    } else {
        insert(first);
    }
}

// --- the keys in the box -----------------------------------------------------------------------

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
    } else if (event->key() == Qt::Key_Escape && taking_one_) {
        end_one();
    } else if (event->key() == Qt::Key_Escape && has_begun()) {
        discard();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void ScanEntry::showEvent(QShowEvent* event) {
    QLineEdit::showEvent(event);
    follow_scanner_type();
}

void ScanEntry::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    follow_scanner_type();
}

// A box that takes one code goes when the focus has found its new place.
void ScanEntry::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool comes_back =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (comes_back) return;
    abandon();
    if (taking_one_) QMetaObject::invokeMethod(this, &ScanEntry::end_one, Qt::QueuedConnection);
}

// --- the end of a code -------------------------------------------------------------------------

// A line begins with one full stop: another one came by mistake.
QString ScanEntry::held() const {
    return collector_.isNull() || text().startsWith(full_stop) ? QString() : collector_->text();
}

QString ScanEntry::line_so_far() const {
    const QString before = letters_ + held();
    for (qsizetype from = 0; from <= before.size(); ++from) {
        const QString line = before.mid(from) + text();
        if (scanner_type == keyboard_wedge && names_something(line)) return line;
    }
    return held() + text();
}

void ScanEntry::finish() {
    if (scanner_type == no_scanner) return ask();
    if (!is_typed_into()) return;
    const QString line = line_so_far();
    const bool one = taking_one_;
    discard();
    end_one();
    if (one && line.trimmed().isEmpty()) {
        Q_EMIT scanned({});
    } else {
        take_line(line);
    }
}

void ScanEntry::take_line(const QString& line) {
    guarded([&] {
        const std::string typed = typed_text(line);
        if (trim(typed).empty()) return;
        const std::string code = code_in_line(typed);
        if (!code.empty() || hands_over_unread_) return void(Q_EMIT scanned(code));
        say(tr("No barcode could be read. Please scan again."));
    });
}

// What was typed already stands in the box that asks; a cancelled box throws nothing away.
void ScanEntry::ask() {
    const QPointer<ScanEntry> still_here(this);
    const std::optional<std::string> code = asked_code(held() + text());
    if (still_here.isNull() || !code) return;
    discard();
    if (!code->empty()) Q_EMIT scanned(*code);
}

// --- one code ----------------------------------------------------------------------------------

void ScanEntry::take_one(QWidget& back_to) {
    if (scanner_type == batch_scanner) return;
    if (scanner_type == no_scanner) {
        const QPointer<ScanEntry> still_here(this);
        const std::optional<std::string> code = asked_code({});
        if (!still_here.isNull() && code) Q_EMIT scanned(*code);
        return;
    }
    discard();
    back_to_ = &back_to;
    taking_one_ = true;
    show();
    setFocus(Qt::OtherFocusReason);
}

// The focus goes back unless the user has taken it elsewhere.
void ScanEntry::end_one() {
    if (!taking_one_) return;
    taking_one_ = false;
    discard();
    if (hasFocus() && !back_to_.isNull()) back_to_->setFocus(Qt::OtherFocusReason);
    hide();
    Q_EMIT ended();
}

}  // namespace tavernook
