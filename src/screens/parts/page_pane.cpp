#include "screens/parts/page_pane.h"

#include <QApplication>
#include <QPointer>
#include <utility>

#include "platform/html_view.h"
#include "reports/preview.h"
#include "screens/parts/screen.h"
#include "screens/parts/shown_text.h"
#include "ui_page_pane.h"

namespace tavernook {

PagePane::PagePane(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::PagePane>()) {
    ui_->setupUi(this);
    ui_->show_again_button->hide();
    connect(ui_->show_again_button, &QPushButton::clicked, this, [this] { show_page(path_); });
    take_view();
}

PagePane::~PagePane() = default;

void PagePane::take_view() {
    PageView made = new_page_view();
    view_ = std::move(made.view);
    if (view_ == nullptr) {
        const QString why = shown_text(made.trouble);
        return ui_->sentence->setText(
            tr("Pages can be neither shown nor printed on this computer, as what shows them could "
               "not be started.\n\n%1")
                .arg(why));
    }
    ui_->sentence->setText(tr("The page comes up in a moment."));
    view_->widget().setAccessibleName(tr("Page"));
    ui_->stack->addWidget(&view_->widget());
    view_->when_lost([me = QPointer(this)] {
        if (me) me->lose_page();
    });
}

bool PagePane::is_still_on_show(int page) const {
    const bool is_still = page != 0 && page == on_show();
    if (!is_still) say(tr("The page is not there any more.  Nothing was done with it."));
    return is_still;
}

void PagePane::show_sentence(const QString& sentence) {
    if (has_view()) ui_->sentence->setText(sentence);
}

void PagePane::show_page(const std::string& path) {
    if (!has_view()) return;
    path_ = path;
    is_there_ = false;
    is_edited_ = false;
    view_->navigate(path_, [me = QPointer(this), page = ++page_](bool stands_there) {
        if (me) me->follow_arrival(page, stands_there);
    });
}

void PagePane::follow_arrival(int page, bool stands_there) {
    if (page != page_) return;
    if (!stands_there) {
        return miss(tr("The page could not be shown. Its file may have been deleted."), false);
    }
    is_there_ = true;
    const bool was_asked_for_here = ui_->show_again_button->hasFocus();
    ui_->stack->setCurrentWidget(&view_->widget());
    if (was_asked_for_here) focus_page();
    Q_EMIT arrived();
}

// What is still on its way is lost as well.
void PagePane::lose_page() {
    ++page_;
    miss(tr("The page was lost, as what shows pages has stopped working. What was typed into it is "
            "gone."),
         true);
}

void PagePane::miss(const QString& sentence, bool lost) {
    is_there_ = false;
    is_edited_ = false;
    ui_->sentence->setText(sentence);
    ui_->show_again_button->setAccessibleDescription(sentence);
    const bool had_focus = has_focus_in_page();
    ui_->show_again_button->show();
    ui_->stack->setCurrentWidget(ui_->in_its_place);
    if (had_focus) focus_show_again();
    Q_EMIT missed(lost);
}

// A view may take the focus by it.
void PagePane::let_edit() {
    const QPointer<QWidget> focused = QApplication::focusWidget();
    view_->set_design_mode_on();
    if (focused) focused->setFocus();
    is_edited_ = true;
}

void PagePane::focus_page() {
    view_->widget().setFocus();
}

bool PagePane::has_focus_in_page() const {
    const QWidget* focused = QApplication::focusWidget();
    return has_view() && focused != nullptr &&
           (focused == &view_->widget() || view_->widget().isAncestorOf(focused));
}

void PagePane::focus_show_again() {
    ui_->show_again_button->setFocus();
}

bool PagePane::insert_image(const std::string& path) {
    return view_->insert_image(path);
}

void PagePane::read_page(std::function<void(std::optional<std::string>)> done) {
    view_->read_page(std::move(done));
}

void PagePane::print(std::shared_ptr<QPrinter> printer, std::function<void(int)> progress,
                     std::function<void(bool)> done) {
    view_->print(std::move(printer), std::move(progress), std::move(done));
}

void PagePane::cancel_printing() {
    view_->cancel_printing();
}

}  // namespace tavernook
