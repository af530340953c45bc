#include "screens/scanning/BCBuild.h"

#include <QCloseEvent>

#include "screens/parts/icons.h"
#include "screens/parts/label_font.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/page_pane.h"
#include "screens/parts/print_pane.h"
#include "ui_BCBuild.h"

namespace tavernook {

namespace {

QString counted(int count, const QString& one, const QString& several) {
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : several);
}

QString counted_labels(int count) {
    return counted(count, tr("label"), tr("labels"));
}

// "84 labels: 72 items and 12 recipes."
QString told(const SheetContents& contents, const SheetLabels& labels) {
    QStringList kinds;
    if (contents.items) kinds << counted(labels.items, tr("item"), tr("items"));
    if (contents.recipes) kinds << counted(labels.recipes, tr("recipe"), tr("recipes"));
    return QStringLiteral("%1: %2.").arg(counted_labels(labels.items + labels.recipes),
                                         kinds.join(tr(" and ")));
}

// What keeps scanners from reading the labels.
QString trouble_with(const SheetLabels& labels) {
    QStringList lines;
    if (const QString missing = missing_label_font(); !missing.isEmpty()) lines << missing;
    if (labels.misread > 0) {
        lines << tr("Scanners read %1 wrong or not at all: such a barcode cannot hold small "
                    "letters, stars or signs other than - . $ / + %.")
                     .arg(counted_labels(labels.misread));
    }
    if (labels.without_code > 0) {
        lines << tr("%1 without a barcode: scanners read EMPTY there.")
                     .arg(counted(labels.without_code, tr("item"), tr("items")));
    }
    return lines.join(QLatin1Char('\n'));
}

}  // namespace

BCBuild::BCBuild(QWidget* parent)
    : Screen(parent),
      ui_(laid_out<Ui::BCBuild>(*this)),
      page_(*ui_->wb1),
      printing_(*ui_->printing) {
    setWindowIcon(icon(QStringLiteral("barcodes")));
    const int side = fontMetrics().height();
    ui_->notice_icon->setPixmap(
        icon(QStringLiteral("warning")).pixmap(QSize(side, side), devicePixelRatioF()));
    connect_commands();
    connect_page();
    enter_presses_buttons(*this);
    show_last_sheet();
}

BCBuild::~BCBuild() = default;

void BCBuild::connect_commands() {
    on_command(ui_->build_button, [this] { build(); });
    on_command(ui_->print_button, [this] {
        show_notice();
        printing_.print("Barcode List", false);
    });
    on_command(ui_->close_button, [this] { close_screen(*this); });
    on_keys(*this, QKeySequence::Print, [this] { ui_->print_button->click(); });
    on_keys(*this, Qt::Key_Escape, [this] { run([this] { escape(); }); });
}

void BCBuild::connect_page() {
    printing_.set_up(*this, page_);
    connect(&printing_, &PrintPane::begun, this, &BCBuild::update_commands);
    connect(&printing_, &PrintPane::ended, this, &BCBuild::end);
    connect(&page_, &PagePane::arrived, this, [this] { guarded([this] { update_commands(); }); });
    connect(&page_, &PagePane::missed, this, [this] {
        guarded([this] {
            update_commands();
            if (hasFocus()) page_.focus_show_again();
        });
    });
}

// --- the sheet -----------------------------------------------------------------------------------

void BCBuild::show_last_sheet() {
    page_.show_sentence(
        tr("Tick what to show, and press \"Build Barcode List\" to make the labels."));
    if (has_sheet()) show_sheet({});
    show_notice();
    update_commands();
    if (!page_.has_view()) say(tr("Pages can be neither shown nor printed on this computer."));
}

void BCBuild::build() {
    const SheetContents contents{.items = ui_->Check1->isChecked(),
                                 .recipes = ui_->Check2->isChecked()};
    if (!contents.items && !contents.recipes) return say(tr("Tick what to show first."));
    const BuiltSheet built = Build_Doc(contents);
    if (!built.is_written) return say(tr("The list could not be made."));  // this may have gone
    show_sheet(built.labels);
    say(told(contents, built.labels));
}

void BCBuild::show_sheet(const SheetLabels& labels) {
    labels_ = labels;
    page_.show_page(sheet_path());
    show_notice();
    update_commands();
}

// As fonts come and go.
void BCBuild::show_notice() {
    const QString trouble = page_.path().empty() ? QString() : trouble_with(labels_);
    ui_->notice_text->setText(trouble);
    ui_->notice->setVisible(!trouble.isEmpty());
}

// --- printing ------------------------------------------------------------------------------------

void BCBuild::update_commands() {
    const bool is_free = !printing_.is_running();
    for (QWidget* part :
         std::initializer_list<QWidget*>{ui_->Check1, ui_->Check2, ui_->build_button}) {
        part->setEnabled(is_free);
    }
    ui_->print_button->setEnabled(is_free && page_.on_show() != 0);
}

void BCBuild::end(const QString& words) {
    update_commands();
    say(words);
    if (hasFocus() && ui_->print_button->isEnabled()) ui_->print_button->setFocus();
}

bool BCBuild::would_be_lost() const {
    return printing_.is_running();
}

void BCBuild::end_work() {
    quietly([this] {
        printing_.end_with_screen(tr("Printing was stopped, as the labels were closed."));
    });
}

// --- keys ----------------------------------------------------------------------------------------

void BCBuild::escape() {
    if (printing_.is_running()) return printing_.stop();
    close_screen(*this);
}

// The screen itself keeps the focus while a print runs, so that nothing is pressed by chance.
void BCBuild::focusInEvent(QFocusEvent*) {
    if (!printing_.is_running()) ui_->build_button->setFocus();
}

void BCBuild::closeEvent(QCloseEvent* event) {
    end_work();
    Screen::closeEvent(event);
}

}  // namespace tavernook
