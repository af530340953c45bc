// The text of the recipe shown: from its file into the pane and back.
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "basics/code_page.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "recipes/recipe_names.h"
#include "screens/cookbook/Mealbuilder.h"
#include "screens/parts/icons.h"
#include "screens/parts/quantity_box.h"
#include "screens/parts/shown_text.h"
#include "screens/text/recipe_pane.h"
#include "ui_Mealbuilder.h"

namespace tavernook {

namespace {

std::string failure(const char* what, const Fault& fault, const std::string& path) {
    return what + fault.description + " Path = " + text_from_utf8(path);
}

// Whether the recipe's entry leads to no file, so that there is nothing to be saved over.
bool has_no_file(i16 slot) {
    bool none = false;
    trap([&] { none = !files().exists(document_path(slot)); }, [](const Fault&) {});
    return none;
}

QString recipe_name(i16 slot) {
    return shown_text(meals[slot].name.trimmed());
}

}  // namespace

void Mealbuilder::set_up_document() {
    pane_ = new RecipePane(ui_->document_panel);
    pane_->setObjectName(QStringLiteral("recipe_pane"));
    ui_->document_layout->addWidget(pane_, 1);
    const int side = fontMetrics().height() * 3 / 2;
    ui_->notice_icon->setPixmap(
        icon(QStringLiteral("warning")).pixmap(QSize(side, side), devicePixelRatioF()));
    connect(pane_, &RecipePane::changed, this, [this] {
        if (has_unsaved_text()) project_modified = i16_true;
    });
    connect(pane_, &RecipePane::information_wanted, this,
            [this] { run([this] { AddMealInfo(); }); });
    connect(pane_, &RecipePane::barcode_wanted, this, [this] {
        run([this] {
            if (has_recipe()) pane_->insert_barcode_of(shown_);
        });
    });
}

// --- what the pane holds ---------------------------------------------------------------------

void Mealbuilder::set_document(Document state) {
    document_ = state;
    if (holds_text()) pane_owner_ = is_live_meal(shown_) ? recipe_name(shown_) : QString();
    show_notice();
}

bool Mealbuilder::holds_text() const {
    return document_ == Document::loaded || document_ == Document::fresh;
}

void Mealbuilder::clear_document() {
    {
        const QSignalBlocker silence(pane_);
        pane_->clear();
        pane_->set_unchanged();
    }
    pane_owner_.clear();
    set_document(Document::none);
}

bool Mealbuilder::has_unsaved_text() const {
    if (!is_live_meal(shown_)) return false;
    return document_ == Document::fresh || (document_ == Document::loaded && pane_->is_changed());
}

void Mealbuilder::show_notice() {
    pane_->set_editable(holds_text());
    const bool unread = document_ == Document::unread;
    ui_->document_notice->setVisible(unread);
    if (!unread) return;
    QString text;
    if (!has_recipe()) {
        text = tr("The recipe is deleted, but its text could not be kept. Copy what you need.");
    } else if (meals[shown_].name.blank()) {
        text = tr("A recipe without a name has no text. Give it a name (F2), then press F5.");
    } else {
        text = tr("The text of \"%1\" could not be read. Nothing is changed in its file.")
                   .arg(recipe_name(shown_));
        if (!pane_owner_.isEmpty()) {
            text +=
                QLatin1Char(' ') + tr("Below still stands the text of \"%1\".").arg(pane_owner_);
        }
    }
    ui_->notice_text->setText(text);
    ui_->write_anew_button->setVisible(can_write_anew());
}

bool Mealbuilder::can_write_anew() const {
    return document_ == Document::unread && has_recipe() && !meals[shown_].name.blank() &&
           has_no_file(shown_);
}

// Where a file is missing the user may begin again; a file that is there stays as it is.
void Mealbuilder::write_anew() {
    if (!can_write_anew()) return;
    clear_document();
    set_document(Document::fresh);
    project_modified = i16_true;
    pane_->setFocus(Qt::OtherFocusReason);
}

// Heading, and where the text and the barcode are found.
void Mealbuilder::show_name() {
    const bool recipe = has_recipe() && is_live_meal(shown_);
    ui_->recipe_heading->setText(recipe ? recipe_name(shown_) : tr("No recipe chosen"));
    QString places;
    if (recipe) {
        places = QStringLiteral("\\recipes\\") + shown_text(document_name(shown_)) +
                 QStringLiteral("\nBarcode Name: TVK%1").arg(shown_);
    }
    ui_->Label2->setText(places);
}

// --- from the file and back ------------------------------------------------------------------

bool Mealbuilder::Load_RTF(i16 slot) {
    set_document(Document::unread);
    if (meals[slot].name.blank()) return true;
    return trap(
        [&] { take_document(slot); },
        [&](const Fault& fault) { show_fault(failure("Error: ", fault, document_path(slot))); });
}

// A text of the old form goes into a file of its own as soon as it is seen.
void Mealbuilder::take_document(i16 slot) {
    const StoredDocument stored = stored_document(slot);
    if (stored.kind == DocumentKind::none) {
        clear_document();
        return set_document(Document::loaded);
    }
    {
        const QSignalBlocker silence(pane_);
        pane_->load(stored.bytes);
        pane_->set_unchanged();
    }
    set_document(Document::loaded);
    if (stored.kind == DocumentKind::old_form) store_document(slot, pane_->rich_text());
}

bool Mealbuilder::save_document() {
    if (!has_recipe()) return true;
    if (has_unsaved_text()) return Save_RTF(shown_);
    trap_in_screen([this] { store_serving(); });
    return true;
}

bool Mealbuilder::Save_RTF(i16 slot) {
    if (!holds_text()) return false;
    const bool saved = trap(
        [&] {
            store_document(slot, pane_->rich_text());
            pane_->set_unchanged();
            document_ = Document::loaded;
        },
        [&](const Fault& fault) {
            show_fault(failure("Save Error: ", fault, new_document_path(slot)));
        });
    if (slot == shown_) trap_in_screen([this] { store_serving(); });
    return saved;
}

bool Mealbuilder::Save_RTF_bak(i16 slot) {
    return trap([&] { store_document_backup(slot, pane_->rich_text()); },
                [&](const Fault& fault) {
                    show_fault(failure("Save Error: ", fault, document_backup_path(slot)));
                });
}

// Of a recipe that has just been deleted. What the pane could not read is kept as it is.
bool Mealbuilder::keep_deleted_text(i16 slot) {
    if (holds_text()) return Save_RTF_bak(slot);
    trap([&] { store_document_backup(slot, stored_document(slot).bytes); }, [](const Fault&) {});
    return true;
}

// --- into the text ---------------------------------------------------------------------------

void Mealbuilder::add_text(std::string_view text) {
    if (holds_text()) pane_->add_text(shown_text(text));
}

void Mealbuilder::AddMealInfo() {
    if (!holds_text()) return;
    store_serving();
    QStringList lines;
    for (const std::string& line : information_lines(figures_)) lines.append(shown_text(line));
    pane_->add_lines(lines);
}

}  // namespace tavernook
