#include "screens/aids/tut.h"

#include <QApplication>
#include <QShortcut>
#include <algorithm>

#include "aids/lessons.h"
#include "core/project_data.h"
#include "screens/parts/label_access.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "ui_tut.h"

namespace tavernook {

namespace {

constexpr i16 largest_text = 72;
constexpr int comfortable_lines = 5;
constexpr int comfortable_letters = 60;

QString page_text(const std::string& page) {
    if (!page.empty()) return shown_text(page);
    if (tut_section == 0) return tr("No lesson is chosen. \"Menu\" shows them all.");
    return tr("This lesson has no pages: its file \"%1\" is missing or damaged.")
        .arg(shown_text(lesson_file_name(tut_section)));
}

}  // namespace

tut::tut(QWidget* parent) : Screen(parent), ui_(laid_out<Ui::tut>(*this)) {
    setFocusProxy(ui_->next_button);
    enter_presses_buttons(*this);
    connect_parts();
    follow_changes();
}

tut::~tut() = default;

void tut::connect_parts() {
    on_command(ui_->next_button, [this] { show_next(); });
    on_command(ui_->prev_button, [this] { show_previous(); });
    on_command(ui_->menu_button, [] { show_screen(QStringLiteral("Dialog")); });
    on_command(ui_->close_button, [this] { Q_EMIT close_wanted(); });
    on_keys(*this, Qt::Key_Escape, [this] { ui_->close_button->click(); });
    connect(new QShortcut(Qt::ALT | Qt::Key_Right, this), &QShortcut::activated, ui_->next_button,
            &QAbstractButton::click);
    connect(new QShortcut(Qt::ALT | Qt::Key_Left, this), &QShortcut::activated, ui_->prev_button,
            &QAbstractButton::click);
}

// So many lines of the text as a page of a lesson has.
QSize tut::sizeHint() const {
    const QFontMetrics letters(ui_->text_box->font());
    const int around = 2 * fontMetrics().height();
    return QSize(letters.averageCharWidth() * comfortable_letters,
                 letters.lineSpacing() * comfortable_lines + around)
        .expandedTo(minimumSizeHint());
}

void tut::show_next() {
    const i16 last = lesson_page_count();
    if (last > 0 && tut_page >= last) say(tr("This is the last page of the lesson."));
    show_next_page();
}

void tut::show_previous() {
    if (lesson_page_count() > 0 && tut_page <= 1) {
        say(tr("This is the first page of the lesson."));
    }
    show_previous_page();
}

tut::Shown tut::present() {
    return {tut_section, lesson_title(),      lesson_page(tut_page),
            tut_page,    lesson_page_count(), font_size};
}

void tut::follow_changes() {
    const Shown now = present();
    const bool has_turned =
        now.section != shown_.section || now.page != shown_.page || now.number != shown_.number;
    if (now == shown_ && !ui_->text_box->toPlainText().isEmpty()) return;
    shown_ = now;
    ui_->title_label->setText(
        QStringLiteral("TAVERNOOK Tutorial\n%1").arg(shown_text(shown_.title)));
    ui_->page_label->setVisible(shown_.count > 0);
    ui_->page_label->setText(tr("Page %1 of %2").arg(shown_.number).arg(shown_.count));
    if (has_turned || ui_->text_box->toPlainText().isEmpty()) {
        ui_->text_box->setPlainText(page_text(shown_.page));
        announce_page();
    }
    show_text_size();
}

void tut::show_text_size() {
    QFont font = QApplication::font(ui_->text_box);
    if (shown_.points > 0) font.setPointSize(std::min(shown_.points, largest_text));
    ui_->text_box->setFont(font);
}

// Who listens hears the number of the page, and its text behind it.
void tut::announce_page() {
    ui_->page_label->setAccessibleDescription(ui_->text_box->toPlainText());
    announce(*ui_->page_label);
}

}  // namespace tavernook
