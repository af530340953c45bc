#include "screens/reports/PP.h"

#include <QCloseEvent>
#include <QPointer>
#include <utility>

#include "basics/text.h"
#include "core/replace_file.h"
#include "platform/platform.h"
#include "reports/preview.h"
#include "screens/parts/icons.h"
#include "screens/parts/label_font.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/page_pane.h"
#include "screens/parts/print_pane.h"
#include "screens/parts/shown_text.h"
#include "ui_PP.h"

namespace tavernook {

namespace {

constexpr const char* sizes[] = {"Small", "Medium", "Large", "Extra Large"};

constexpr const char* picture_filter =
    "Pictures (*.jpg;*.jpeg;*.png;*.gif;*.bmp)|*.jpg;*.jpeg;*.png;*.gif;*.bmp";
constexpr const char* page_filter = "Web Page (*.htm)|*.htm";

const PreviewControls& controls() {
    return preview_controls(preview_kind);
}

QString name_of_file(const std::string& path) {
    return shown_path(file_name_part(path));
}

}  // namespace

PP::PP(QWidget* parent)
    : Screen(parent),
      ui_(laid_out<Ui::PP>(*this)),
      page_(*ui_->browser),
      printing_(*ui_->printing) {
    setWindowIcon(icon(QStringLiteral("print")));
    for (const char* size : sizes) ui_->size_box->addItem(tr(size));
    ui_->size_box->installEventFilter(this);
    connect_commands();
    connect_page();
    enter_presses_buttons(*this);
    set_preview(this);
    show_page();
}

PP::~PP() {
    if (preview() == this) set_preview(nullptr);
}

void PP::connect_commands() {
    on_command(ui_->print_button,
               [this] { printing_.print(controls().title, controls().is_wide); });
    on_command(ui_->edit_button, [this] { edit(); });
    on_command(ui_->notes_button, [this] { edit(); });
    on_command(ui_->insert_image_button, [this] { insert_image(); });
    on_command(ui_->save_button, [this] { save(); });
    on_command(ui_->gridlines_box, [this] { make_anew(); });
    on_command(ui_->cancel_button, [this] { close_screen(*this); });
    connect(ui_->size_box, &QComboBox::activated, this, [this] { run([this] { make_anew(); }); });
    on_keys(*this, QKeySequence::Print, [this] { ui_->print_button->click(); });
    on_keys(*this, Qt::Key_Escape, [this] { run([this] { escape(); }); });
}

void PP::connect_page() {
    printing_.set_up(*this, page_);
    connect(&printing_, &PrintPane::begun, this, &PP::update_commands);
    connect(&printing_, &PrintPane::ended, this, &PP::end);
    connect(&page_, &PagePane::arrived, this, [this] { guarded([this] { follow_arrival(); }); });
    connect(&page_, &PagePane::missed, this, [this](bool lost) {
        guarded([&] {
            update_commands();
            if (lost && is_saving_) end(tr("The page was lost before it was done."));
            if (hasFocus()) page_.focus_show_again();
        });
    });
}

// --- what is shown -------------------------------------------------------------------------------

void PP::show_page() {
    guarded([this] { take_page(); });
}

void PP::take_page() {
    page_waits_ = is_busy();
    if (page_waits_) return;
    size_ = 0;
    has_gridlines_ = false;
    show_look();
    setWindowTitle(tr(controls().title));
    page_.show_page(html_path);
    update_commands();
    if (!page_.has_view()) say(tr("Pages can be neither shown nor printed on this computer."));
}

void PP::follow_arrival() {
    if (controls().edits_at_once) page_.let_edit();
    const QString missing = controls().has_codes ? missing_label_font() : QString();
    if (!missing.isEmpty()) say(missing);
    update_commands();
    if (hasFocus()) focus_main_command();
}

void PP::update_commands() {
    const PreviewControls& has = controls();
    const bool is_free = !is_busy() && page_.has_view() && !page_waits_;
    const bool is_ready = is_free && page_.on_show() != 0;
    ui_->print_button->setEnabled(is_ready);
    ui_->edit_button->setEnabled(is_ready && has.has_edit);
    ui_->insert_image_button->setEnabled(is_ready && has.has_edit && page_.is_edited());
    ui_->notes_button->setEnabled(is_ready && has.has_notes);
    ui_->save_button->setEnabled(is_ready);
    ui_->size_label->setEnabled(is_free && has.has_sizes);
    ui_->size_box->setEnabled(is_free && has.has_sizes);
    ui_->gridlines_box->setEnabled(is_free && has.has_gridlines);
}

// The screen itself keeps the focus until the page is there, so that nothing is pressed by chance.
void PP::focusInEvent(QFocusEvent*) {
    focus_main_command();
}

void PP::focus_main_command() {
    if (!page_.has_view()) return ui_->cancel_button->setFocus();
    if (!is_busy() && ui_->print_button->isEnabled()) ui_->print_button->setFocus();
}

// A wheel that passes over the list on its way makes no page anew.
bool PP::eventFilter(QObject* watched, QEvent* event) {
    const bool passes_by = event->type() == QEvent::Wheel && !ui_->size_box->hasFocus();
    if (watched != ui_->size_box || !passes_by) return Screen::eventFilter(watched, event);
    event->ignore();
    return true;
}

// --- the page is changed -------------------------------------------------------------------------

void PP::edit() {
    page_.let_edit();
    update_commands();
    page_.focus_page();
}

void PP::insert_image() {
    const QPointer<PP> still(this);
    const int page = page_.on_show();
    const std::string path = file_dialogs().open_file({"Insert Image", picture_filter, ""});
    if (!still || !page_.is_still_on_show(page)) return;
    if (page_.insert_image(path)) return page_.focus_page();
    say(tr("\"%1\" holds no picture that can be shown.").arg(name_of_file(path)));
}

void PP::make_anew() {
    const int size = ui_->size_box->currentIndex();
    const bool gridlines = ui_->gridlines_box->isChecked();
    if (size == size_ && gridlines == has_gridlines_) return;
    const QPointer<PP> still(this);
    const bool was_edited = page_.is_edited();
    const bool is_made = rebuild_page(font_size_named(sizes[size]), gridlines);
    if (!still) return;
    if (!is_made) return show_look();
    size_ = size;
    has_gridlines_ = gridlines;
    page_.show_page(html_path);
    update_commands();
    if (was_edited) {
        say(tr("The page was made anew, without anything that was typed into it."));
    }
}

void PP::show_look() {
    ui_->size_box->setCurrentIndex(size_);
    ui_->gridlines_box->setChecked(has_gridlines_);
}

// What was begun last goes first.
void PP::escape() {
    if (printing_.is_running()) return printing_.stop();
    if (!page_.is_edited() || !page_.has_focus_in_page()) return close_screen(*this);
    ui_->print_button->setFocus();
    say(tr("Press Esc once more to close the preview; what was typed into the page is lost then."));
}

// --- saving --------------------------------------------------------------------------------------

void PP::save() {
    const QPointer<PP> still(this);
    const int page = page_.on_show();
    const std::string path = file_dialogs().save_file(
        {"Save as HTML", page_filter, std::string(controls().title) + ".htm"});
    if (!still || !page_.is_still_on_show(page)) return;
    is_saving_ = true;
    hold_focus(*this, page_);
    update_commands();
    page_.read_page([still, job = ++job_, path](const std::optional<std::string>& bytes) {
        if (still) still->write_file(job, path, bytes);
    });
}

void PP::write_file(int job, const std::string& path, const std::optional<std::string>& bytes) {
    if (!is_saving(job)) return;
    if (!bytes) return end(tr("The page could not be read.  Nothing was saved."));
    const QPointer<PP> still(this);
    const QString name = name_of_file(path);
    const bool is_saved = guarded([&] { replace_file(files().behind_link(path), *bytes); },
                                  [&](const Fault& fault) {
                                      return typed_text(tr("%1 could not be saved.").arg(name)) +
                                             "  " + fault.description + ".";
                                  });
    if (!still || !is_saving(job)) return;
    end(is_saved ? tr("The page was saved as %1.").arg(name) : tr("The page was not saved."));
}

// --- what takes its time -------------------------------------------------------------------------

bool PP::is_busy() const {
    return is_saving_ || printing_.is_running();
}

void PP::end(const QString& words) {
    is_saving_ = false;
    update_commands();
    say(words);
    if (page_waits_) take_page();
    if (hasFocus()) focus_main_command();
}

bool PP::would_be_lost() const {
    return printing_.is_running() || is_saving_;
}

void PP::end_work() {
    quietly([this] { end_jobs(); });
}

void PP::end_jobs() {
    page_waits_ = false;
    printing_.end_with_screen(tr("Printing was stopped, as the preview was closed."));
    if (!std::exchange(is_saving_, false)) return;
    say_behind_closing(*this, tr("The page was not saved, as the preview was closed."));
}

void PP::closeEvent(QCloseEvent* event) {
    end_work();
    Screen::closeEvent(event);
}

}  // namespace tavernook
