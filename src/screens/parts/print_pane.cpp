#include "screens/parts/print_pane.h"

#include <QMetaObject>
#include <QPointer>
#include <utility>

#include "platform/platform.h"
#include "reports/preview.h"
#include "screens/parts/page_pane.h"
#include "screens/parts/screen.h"
#include "ui_print_pane.h"

namespace tavernook {

namespace {

constexpr int most_rows_unasked = 5000;

bool agrees_to_print(const std::string& path) {
    const int rows = rows_on_page(path);
    if (rows <= most_rows_unasked) return true;
    const std::string question = "This page has " + std::to_string(rows) +
                                 " rows and takes many sheets of paper.  Do you want to print it?";
    return boxes().message(question, Buttons::yes_no, "Print", DefaultButton::no) == Answer::yes;
}

}  // namespace

PrintPane::PrintPane(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::PrintPane>()) {
    ui_->setupUi(this);
    hide();
}

PrintPane::~PrintPane() = default;

void PrintPane::set_up(Screen& screen, PagePane& page) {
    screen_ = &screen;
    page_ = &page;
    connect(ui_->stop_button, &QPushButton::clicked, screen_,
            [this] { screen_->run([this] { stop(); }); });
    connect(page_, &PagePane::missed, this, [this](bool lost) {
        guarded([&] {
            if (lost && is_running_) end(tr("The page was lost before it was done."));
        });
    });
}

void PrintPane::print(const std::string& title, bool is_wide) {
    const QPointer<PrintPane> still(this);
    const int page = page_->on_show();
    if (!agrees_to_print(page_->path()) || !still) return;
    const auto printer = print_prompt().ask(*screen_, title, is_wide);
    if (printer == nullptr || !still || !page_->is_still_on_show(page)) return;
    begin();
    page_->print(
        printer,
        [still, job = job_](int percent) {
            if (still && still->runs(job)) still->ui_->printing_bar->setValue(percent);
        },
        [still, job = job_](bool is_done) {
            if (still) still->follow_end(job, is_done);
        });
}

void PrintPane::begin() {
    ++job_;
    is_running_ = true;
    is_stopped_ = false;
    ui_->printing_bar->setValue(0);
    hold_focus(*screen_, *page_);
    show_state();
    Q_EMIT begun();
}

void PrintPane::follow_end(int job, bool is_done) {
    if (!runs(job)) return;
    if (is_done) return end(tr("The page was handed to the printer."));
    end(is_stopped_ ? tr("Printing was stopped.  A part of the page may come out of the printer.")
                    : tr("The page could not be printed, or only a part of it."));
}

void PrintPane::end(const QString& words) {
    is_running_ = false;
    is_stopped_ = false;
    show_state();
    Q_EMIT ended(words);
}

void PrintPane::stop() {
    if (std::exchange(is_stopped_, true)) return;
    say(tr("Printing is being stopped."));
    show_state();
    page_->cancel_printing();
}

void PrintPane::end_with_screen(const QString& words) {
    if (!std::exchange(is_running_, false)) return;
    page_->cancel_printing();
    say_behind_closing(*screen_, words);
}

void PrintPane::show_state() {
    ui_->stop_button->setEnabled(!is_stopped_);
    setVisible(is_running_);
}

// Before the button that was pressed is off, and the next one in line takes the focus over.
void hold_focus(Screen& screen, const PagePane& page) {
    if (!page.has_focus_in_page()) screen.setFocus();
}

void say_behind_closing(const Screen& screen, const QString& words) {
    QMetaObject::invokeMethod(
        screen.window(), [words] { quietly([&] { say(words); }); }, Qt::QueuedConnection);
}

}  // namespace tavernook
