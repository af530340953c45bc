// The page itself: a view of HTML, or, where there is none, a sentence that says why.
//
// What shows pages is loaded with the pane; on a computer where it cannot be, the sentence is all
// there is. A page comes later than it is asked for, and until it stands there the one before does.
// What comes of a page that was given up meanwhile counts for nothing.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

class QPrinter;

namespace tavernook {

class HtmlView;

namespace Ui {
class PagePane;
}

class PagePane : public QWidget {
    Q_OBJECT

  public:
    explicit PagePane(QWidget* parent = nullptr);
    ~PagePane() override;

    bool has_view() const { return view_ != nullptr; }

    // The page that stands there, by a number of its own; 0 when none does.
    int on_show() const { return is_there_ ? page_ : 0; }

    // False, told in the message panel, when the page is not the one that was on show then.
    bool is_still_on_show(int page) const;

    // What was typed into the page before is gone.
    void show_page(const std::string& path);
    const std::string& path() const { return path_; }

    // As long as no page was asked for.
    void show_sentence(const QString& sentence);

    // From now on the user types into the page. The focus stays where it is.
    void let_edit();
    bool is_edited() const { return is_edited_; }

    void focus_page();
    bool has_focus_in_page() const;
    void focus_show_again();

    // For a page on show. False when the file holds no picture.
    bool insert_image(const std::string& path);
    void read_page(std::function<void(std::optional<std::string>)> done);
    void print(std::shared_ptr<QPrinter> printer, std::function<void(int)> progress,
               std::function<void(bool)> done);
    void cancel_printing();

  Q_SIGNALS:
    void arrived();          // the page is on show
    void missed(bool lost);  // there is none: it could not be shown, or was lost while it was

  private:
    void take_view();
    void follow_arrival(int page, bool stands_there);
    void lose_page();
    void miss(const QString& sentence, bool lost);

    std::unique_ptr<Ui::PagePane> ui_;
    std::unique_ptr<HtmlView> view_;
    std::string path_;
    int page_ = 0;
    bool is_there_ = false;
    bool is_edited_ = false;
};

}  // namespace tavernook
