// The view of pages over Qt WebEngine. What keeps a page from doing anything stands in `shown_page`
// and `page_folder`; each page that is navigated to is a new one of those, as a huge page that is
// loaded again and again in one fills up the memory.
#pragma once

#include <QDropEvent>
#include <QPointer>
#include <QWebEngineView>
#include <deque>
#include <map>
#include <memory>

#include "platform/html_view.h"
#include "platform_web/page_printing.h"
#include "platform_web/shown_page.h"

namespace tavernook {

// Nothing that is dropped and no entry of its menu leads anywhere.
class PageWidget : public QWebEngineView {
  public:
    explicit PageWidget(QWebEnginePage* page) : QWebEngineView(page) { setAcceptDrops(false); }

  protected:
    QWebEngineView* createWindow(QWebEnginePage::WebWindowType) override { return nullptr; }
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override { event->ignore(); }
    void dragMoveEvent(QDragMoveEvent* event) override { event->ignore(); }
    void dropEvent(QDropEvent* event) override { event->ignore(); }
    void showEvent(QShowEvent* event) override;
};

class WebView : public HtmlView {
  public:
    WebView();
    ~WebView() override;

    QWidget& widget() override { return *widget_; }
    void navigate(const std::string& path, std::function<void(bool)> shown) override;
    void set_design_mode_on() override;
    bool insert_image(const std::string& path) override;
    void read_page(std::function<void(std::optional<std::string>)> done) override;
    void print(std::shared_ptr<QPrinter> printer, std::function<void(int)> progress,
               std::function<void(bool)> done) override;
    void cancel_printing() override;
    void when_lost(std::function<void()> told) override { lost_ = std::move(told); }

  private:
    using PageRead = std::function<void(std::optional<std::string>)>;

    void take_new_page();
    void page_is_loaded(bool succeeded);
    void lose_page();
    void give_up_answers();
    void retire_prints();
    void answer_reading(int number, std::optional<std::string> bytes);
    void let_print_go(const PagePrinting* print);
    void later(std::function<void()> answer);

    QObject answers_;  // with it go those that are still on their way
    std::shared_ptr<PageWorld> world_;
    std::shared_ptr<ShownPage> page_;
    QPointer<PageWidget> widget_;
    std::function<void(bool)> shown_;
    std::function<void()> lost_;
    std::map<int, PageRead> readings_;
    int last_reading_ = 0;
    std::deque<std::unique_ptr<PagePrinting>> prints_;  // the first is at work
};

}  // namespace tavernook
