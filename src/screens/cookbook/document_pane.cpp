#include "screens/cookbook/document_pane.h"

#include <QSignalBlocker>

#include "basics/code_page.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "screens/parts/guard.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/screen.h"
#include "screens/parts/shown_text.h"
#include "screens/text/recipe_pane.h"
#include "ui_document_pane.h"

namespace tavernook {

namespace {

std::string failure(const char* what, const Fault& fault, const std::string& path) {
    return what + fault.description + " Path = " + text_from_utf8(path);
}

// Whether the recipe's entry leads to no file, so that there is nothing to be saved over.
bool has_no_file(i16 slot) {
    bool none = false;
    quietly([&] { none = !files().exists(document_path(slot)); });
    return none;
}

bool has_name(i16 slot) {
    return !row_or_none(meals, slot).name.blank();
}

// Empty when it has gone.
QString name_of(const RowRef& recipe) {
    return shown_text(row_or_none(meals, recipe.now()).name.trimmed());
}

}  // namespace

DocumentPane::DocumentPane(QWidget* parent)
    : QWidget(parent), ui_(laid_out<Ui::DocumentPane>(*this)), pane_(new RecipePane(this)) {
    pane_->setObjectName(QStringLiteral("recipe_pane"));
    ui_->document_layout->addWidget(pane_, 1);
    const int side = fontMetrics().height() * 3 / 2;
    ui_->notice_icon->setPixmap(
        icon(QStringLiteral("warning")).pixmap(QSize(side, side), devicePixelRatioF()));
    setFocusProxy(pane_);
    connect(pane_, &RecipePane::changed, this, [this] {
        if (has_unsaved_text()) Q_EMIT edited();
    });
    connect(pane_, &RecipePane::information_wanted, this, &DocumentPane::information_wanted);
    connect(pane_, &RecipePane::barcode_wanted, this, &DocumentPane::barcode_wanted);
    connect(ui_->write_anew_button, &QAbstractButton::clicked, this,
            &DocumentPane::new_text_wanted);
    update_notice();
}

DocumentPane::~DocumentPane() = default;

// --- what the pane holds ---------------------------------------------------------------------

void DocumentPane::hold(Holds what) {
    holds_ = what;
    if (holds_text() || holds_ == Holds::bare_words) owner_ = name_of(recipe_);
    update_notice();
}

void DocumentPane::hold_nothing() {
    hold(Holds::none);
}
void DocumentPane::hold_fresh() {
    hold(Holds::fresh);
}
void DocumentPane::hold_unread() {
    hold(Holds::unread);
}

void DocumentPane::clear() {
    {
        const QSignalBlocker silence(pane_);
        pane_->clear();
        pane_->set_unchanged();
    }
    owner_.clear();
    hold(Holds::none);
}

bool DocumentPane::has_unsaved_text() const {
    if (recipe_.now() == 0) return false;
    return holds_ == Holds::fresh || (holds_ == Holds::loaded && pane_->is_changed());
}

bool DocumentPane::can_begin_anew() const {
    const i16 slot = recipe_.now();
    return holds_ == Holds::unread && slot != 0 && has_name(slot) && has_no_file(slot);
}

void DocumentPane::lock() {
    pane_->set_editable(false);
}

void DocumentPane::update_notice() {
    const bool has_notice = holds_ == Holds::unread || holds_ == Holds::bare_words;
    pane_->set_editable(holds_text());
    ui_->document_notice->setVisible(has_notice);
    if (!has_notice) return;
    ui_->notice_text->setText(notice());
    ui_->write_anew_button->setVisible(can_begin_anew());
}

QString DocumentPane::notice() const {
    if (recipe_.now() == 0) {
        return tr("The recipe is deleted, but its text could not be kept. Copy what you need.");
    }
    if (!has_name(recipe_.now())) {
        return tr("A recipe without a name has no text. Give it a name (F2), then press F5.");
    }
    if (holds_ == Holds::bare_words) {
        return tr("The text of \"%1\" is too long, or changes its look too often, to be changed "
                  "here. Below stand its words, or the first of them, to be read and copied. "
                  "Nothing is changed in its file.")
            .arg(name_of(recipe_));
    }
    const QString text = tr("The text of \"%1\" could not be read. Nothing is changed in its file.")
                             .arg(name_of(recipe_));
    if (owner_.isEmpty()) return text;
    return text + QLatin1Char(' ') + tr("Below still stands the text of \"%1\".").arg(owner_);
}

// --- from the file and back ------------------------------------------------------------------

bool DocumentPane::load(i16 slot) {
    hold(Holds::unread);
    if (!has_name(slot)) return true;
    return guarded(
        [&] { take(slot); },
        [&](const Fault& fault) { return failure("Error: ", fault, document_path(slot)); });
}

// A text of the old form goes into a file of its own as soon as it is seen.
void DocumentPane::take(i16 slot) {
    const StoredDocument stored = stored_document(slot);
    if (stored.kind == DocumentKind::none) {
        clear();
        return hold(Holds::loaded);
    }
    bool has_looks = false;
    {
        const QSignalBlocker silence(pane_);
        has_looks = pane_->load(stored.bytes);
        pane_->set_unchanged();
    }
    hold(has_looks ? Holds::loaded : Holds::bare_words);
    if (has_looks && stored.kind == DocumentKind::old_form)
        store_document(slot, pane_->rich_text());
}

bool DocumentPane::save(i16 slot) {
    if (!holds_text()) return false;
    return guarded(
        [&] {
            store_document(slot, pane_->rich_text());
            pane_->set_unchanged();
            holds_ = Holds::loaded;
            if (pane_->is_light()) return;
            say(
                tr("Saved. But the text is so long now that it will be shown without its looks, "
                   "and can not be changed then. Part it into two recipes."));
        },
        [&](const Fault& fault) {
            return failure("Save Error: ", fault, new_document_path(slot));
        });
}

bool DocumentPane::save_backup(i16 slot) {
    const bool is_whole = holds_ != Holds::bare_words;
    return guarded(
        [&] {
            store_document_backup(slot,
                                  is_whole ? pane_->rich_text() : stored_document(slot).bytes);
        },
        [&](const Fault& fault) {
            return failure("Save Error: ", fault, document_backup_path(slot));
        });
}

bool DocumentPane::keep_deleted(i16 slot) {
    if (holds_text()) return save_backup(slot);
    quietly([&] { store_document_backup(slot, stored_document(slot).bytes); });
    return true;
}

// --- into the text ---------------------------------------------------------------------------

void DocumentPane::add_text(std::string_view text) {
    if (holds_text()) pane_->add_text(shown_text(text));
}

void DocumentPane::add_lines(const QStringList& lines) {
    if (holds_text()) pane_->add_lines(lines);
}

void DocumentPane::insert_barcode() {
    if (recipe_.now() != 0) pane_->insert_barcode_of(recipe_.now());
}

std::vector<QWidget*> DocumentPane::parts_in_order() const {
    std::vector<QWidget*> parts{ui_->write_anew_button};
    for (QWidget* part : pane_->parts_in_order()) parts.push_back(part);
    return parts;
}

}  // namespace tavernook
