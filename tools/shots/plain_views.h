// Views of pages that stand there at once, without an engine: Qt's own text view, which draws them
// roughly. Nothing is edited, saved or printed.
#pragma once

#include <QFile>
#include <QTextBrowser>
#include <QTimer>

#include "platform/html_view.h"

namespace tavernook {

class PlainView : public HtmlView {
  public:
    ~PlainView() override { delete browser_; }

    QWidget& widget() override { return *browser_; }
    void navigate(const std::string& path, std::function<void(bool)> shown) override {
        const bool is_there = QFile::exists(QString::fromStdString(path));
        browser_->setSource(QUrl::fromLocalFile(QString::fromStdString(path)));
        browser_->setReadOnly(true);
        QTimer::singleShot(0, browser_, [shown = std::move(shown), is_there] { shown(is_there); });
    }
    void set_design_mode_on() override { browser_->setReadOnly(false); }
    bool insert_image(const std::string&) override { return false; }
    void read_page(std::function<void(std::optional<std::string>)>) override {}
    void print(std::shared_ptr<QPrinter>, std::function<void(int)>,
               std::function<void(bool)>) override {}
    void cancel_printing() override {}
    void when_lost(std::function<void()>) override {}

  private:
    QTextBrowser* browser_ = new QTextBrowser;
};

class PlainViews : public HtmlViews {
  public:
    std::unique_ptr<HtmlView> make() override { return std::make_unique<PlainView>(); }
};

// The printer is there, and its page never comes to an end.
class PlainPrintPrompt : public PrintPrompt {
  public:
    std::shared_ptr<QPrinter> ask(QWidget&, const std::string&, bool) override {
        const auto token = std::make_shared<char>();
        return {token, reinterpret_cast<QPrinter*>(token.get())};
    }
};

}  // namespace tavernook
