// Views of pages without an engine: each call in a log ("navigate /x/list.htm", "design mode on",
// "print" ...), and an answer when the test gives it. What a view still had to answer goes with it.
#pragma once

#include <QVBoxLayout>
#include <QWidget>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "basics/fault.h"
#include "fakes/call_log.h"
#include "platform/html_view.h"

namespace tavernook {

// The answers of the view that lives; a test that answers what was not asked fails.
struct HtmlViewAnswers {
    std::deque<std::function<void(bool)>> shown;  // the navigation begun first is in front
    std::function<void(std::optional<std::string>)> read;
    std::function<void(int)> progress;
    std::function<void(bool)> printed;
    std::function<void()> lost;
    QWidget* widget = nullptr;
};

class FakeHtmlView : public HtmlView {
  public:
    FakeHtmlView(CallLog& calls, HtmlViewAnswers& answers, const bool& takes_images)
        : calls_(calls), answers_(answers), takes_images_(takes_images), widget_(new QWidget) {
        auto* inner = new QWidget(widget_);  // what has the focus is a part of the view
        inner->setObjectName(QStringLiteral("fake_page"));
        inner->setAccessibleName(QStringLiteral("Page"));
        inner->setFocusPolicy(Qt::StrongFocus);
        (new QVBoxLayout(widget_))->addWidget(inner);
        widget_->setFocusProxy(inner);
        answers_ = {};
        answers_.widget = inner;
    }
    ~FakeHtmlView() override {
        calls_.add("view gone");
        answers_ = {};
        delete widget_;
    }

    QWidget& widget() override { return *widget_; }
    void navigate(const std::string& path, std::function<void(bool)> shown) override {
        calls_.add("navigate " + path);
        answers_.shown.push_back(std::move(shown));
    }
    // What one types into takes the focus.
    void set_design_mode_on() override {
        calls_.add("design mode on");
        widget_->setFocus();
    }
    bool insert_image(const std::string& path) override {
        calls_.add("insert image " + path);
        return takes_images_;
    }
    void read_page(std::function<void(std::optional<std::string>)> done) override {
        calls_.add("read page");
        answers_.read = std::move(done);
    }
    void print(std::shared_ptr<QPrinter>, std::function<void(int)> progress,
               std::function<void(bool)> done) override {
        calls_.add("print");
        answers_.progress = std::move(progress);
        answers_.printed = std::move(done);
    }
    void cancel_printing() override { calls_.add("cancel printing"); }
    void when_lost(std::function<void()> told) override { answers_.lost = std::move(told); }

  private:
    CallLog& calls_;
    HtmlViewAnswers& answers_;
    const bool& takes_images_;
    QWidget* widget_;
};

class FakeHtmlViews : public HtmlViews {
  public:
    std::optional<Fault> refuses;  // why the engine cannot be loaded
    bool takes_images = true;
    CallLog calls;
    HtmlViewAnswers answers;

    std::unique_ptr<HtmlView> make() override {
        calls.add("make");
        if (refuses) throw Fault(*refuses);
        return std::make_unique<FakeHtmlView>(calls, answers, takes_images);
    }

    void show(bool stands_there = true) {
        if (answers.shown.empty()) return fail("navigation");
        const auto answer = std::move(answers.shown.front());
        answers.shown.pop_front();
        answer(stands_there);
    }
    void hand_over_page(std::optional<std::string> bytes) {
        const auto answer = std::exchange(answers.read, nullptr);
        if (!answer) return fail("reading");
        answer(std::move(bytes));
    }
    void tell_progress(int percent) {
        if (!answers.progress) return fail("print");
        answers.progress(percent);
    }
    void end_print(bool is_done) {
        const auto answer = std::exchange(answers.printed, nullptr);
        if (!answer) return fail("print");
        answer(is_done);
    }
    void lose() {
        if (!answers.lost) return fail("view");
        answers.lost();
    }

  private:
    static void fail(const char* what) { ADD_FAILURE() << "There is no " << what; }
};

class FakePrintPrompt : public PrintPrompt {
  public:
    bool agrees = true;
    bool was_wide = false;             // what was asked for last
    std::function<void()> while_open;  // runs while the dialog is open
    CallLog calls;

    std::shared_ptr<QPrinter> ask(QWidget&, const std::string& title, bool is_wide) override {
        was_wide = is_wide;
        calls.add("ask " + title);
        if (while_open) while_open();
        if (!agrees) return nullptr;
        // A printer that nobody looks into.
        const auto token = std::make_shared<char>();
        return {token, reinterpret_cast<QPrinter*>(token.get())};
    }
};

}  // namespace tavernook
