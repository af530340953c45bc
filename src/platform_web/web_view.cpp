#include "platform_web/web_view.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QJsonObject>
#include <QMenu>
#include <QTimer>
#include <utility>

#include "platform_web/page_bytes.h"
#include "platform_web/page_scripts.h"

namespace tavernook {

namespace {

QString path_of(const std::string& path) {
    return QString::fromStdString(path);
}

}  // namespace

void PageWidget::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto entry :
         {QWebEnginePage::Undo, QWebEnginePage::Redo, QWebEnginePage::Cut, QWebEnginePage::Copy,
          QWebEnginePage::Paste, QWebEnginePage::SelectAll}) {
        menu->addAction(pageAction(entry));
    }
    menu->popup(event->globalPos());
}

// A view that comes into sight would have its page drawn while it still loads.
void PageWidget::showEvent(QShowEvent* event) {
    QWebEngineView::showEvent(event);
    page()->setVisible(static_cast<ShownPage*>(page())->is_loaded());
}

WebView::WebView() : world_(std::make_shared<PageWorld>()) {
    take_new_page();
}

WebView::~WebView() {
    retire_prints();
    page_.reset();
    delete widget_;
}

void WebView::take_new_page() {
    auto fresh = new_page(world_);
    QObject::connect(fresh.get(), &QWebEnginePage::renderProcessTerminated, &answers_,
                     [this] { later([this] { lose_page(); }); });
    if (widget_.isNull()) {
        widget_ = new PageWidget(fresh.get());
    } else {
        widget_->setPage(fresh.get());
    }
    page_ = std::move(fresh);
}

void WebView::navigate(const std::string& path, std::function<void(bool)> shown) {
    give_up_answers();
    take_new_page();
    shown_ = std::move(shown);
    world_->folder.open(path_of(path));
    page_->show(world_->folder.address(), [this](bool succeeded) { page_is_loaded(succeeded); });
}

void WebView::page_is_loaded(bool succeeded) {
    page_->setVisible(widget_->isVisible());
    later([shown = std::exchange(shown_, nullptr), succeeded] { shown(succeeded); });
}

// In a turn of its own: the page that tells so is still at it.
void WebView::lose_page() {
    give_up_answers();
    take_new_page();
    if (lost_) lost_();
}

void WebView::give_up_answers() {
    if (auto shown = std::exchange(shown_, nullptr)) later([shown] { shown(false); });
    while (!readings_.empty()) answer_reading(readings_.begin()->first, std::nullopt);
    for (const auto& print : prints_) print->cancel();
    retire_prints();
}

void WebView::retire_prints() {
    for (const auto& print : std::exchange(prints_, {})) print->retire();
}

void WebView::set_design_mode_on() {
    page_->command(page_scripts::type_into, {});
    widget_->setFocus();
}

bool WebView::insert_image(const std::string& path) {
    QFile file(path_of(path));
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QString address = data_address(file.readAll());
    if (address.isEmpty()) return false;
    page_->command(page_scripts::insert_picture, {address});
    return true;
}

void WebView::read_page(std::function<void(std::optional<std::string>)> done) {
    const int number = ++last_reading_;
    readings_[number] = std::move(done);
    if (!page_->is_loaded()) return answer_reading(number, std::nullopt);
    const auto pictures = QJsonObject::fromVariantMap(world_->folder.shown_pictures());
    const QPointer<QObject> alive(&answers_);
    page_->command(page_scripts::whole_page, {shown_policy(), saved_policy(), pictures},
                   [this, alive, number](const QVariant& page) {
                       if (alive.isNull()) return;
                       const QString text = page.toString();
                       answer_reading(
                           number, text.isEmpty() ? std::nullopt : std::optional(page_bytes(text)));
                   });
}

void WebView::answer_reading(int number, std::optional<std::string> bytes) {
    const auto reading = readings_.extract(number);
    if (reading.empty()) return;
    later([done = reading.mapped(), bytes = std::move(bytes)] { done(bytes); });
}

void WebView::print(std::shared_ptr<QPrinter> printer, std::function<void(int)> progress,
                    std::function<void(bool)> done) {
    if (!page_->is_loaded()) return later([done = std::move(done)] { done(false); });
    prints_.push_back(std::make_unique<PagePrinting>(
        page_, std::move(printer),
        PagePrinting::Told{std::move(progress),
                           [this, done = std::move(done)](bool printed) {
                               later([done, printed] { done(printed); });
                           },
                           [this](PagePrinting& print) {
                               later([this, one = QPointer(&print)] { let_print_go(one); });
                           }}));
    if (prints_.size() == 1) prints_.front()->start();
}

// None when it has gone with its page: nothing is left to do then.
void WebView::let_print_go(const PagePrinting* print) {
    const auto is_it = [print](const auto& one) { return one.get() == print; };
    const bool was_first = !prints_.empty() && is_it(prints_.front());
    std::erase_if(prints_, is_it);
    if (was_first && !prints_.empty()) prints_.front()->start();
}

void WebView::cancel_printing() {
    for (const auto& print : prints_) print->cancel();
}

void WebView::later(std::function<void()> answer) {
    QTimer::singleShot(0, &answers_, std::move(answer));
}

}  // namespace tavernook
