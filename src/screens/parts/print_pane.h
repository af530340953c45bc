// A print of the page that a PagePane shows: from the question for the printer to the word on how
// it went. While one runs, this pane is seen: how far it is, and the button that stops it.
//
// The screen says which page and by what name, and lets nothing else begin between `begun` and
// `ended`. Its `end_work` and its close box end what runs: what is told then comes later, behind
// what closes the screen, which may empty the message panel.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

namespace tavernook {

class PagePane;
class Screen;

namespace Ui {
class PrintPane;
}

class PrintPane : public QWidget {
    Q_OBJECT

  public:
    explicit PrintPane(QWidget* parent = nullptr);
    ~PrintPane() override;

    // Once, before all else. Both outlive this pane.
    void set_up(Screen& screen, PagePane& page);

    // Asks about a page of very many rows, then for the printer. Nothing begins where the user does
    // not want to or the page goes meanwhile, which is told.
    void print(const std::string& title, bool is_wide);

    bool is_running() const { return is_running_; }
    void stop();

    // With the screen; what is told where a print ran.
    void end_with_screen(const QString& words);

  Q_SIGNALS:
    void begun();
    void ended(const QString& words);  // what became of it

  private:
    void begin();
    void follow_end(int job, bool is_done);
    void end(const QString& words);
    void show_state();
    bool runs(int job) const { return is_running_ && job == job_; }

    std::unique_ptr<Ui::PrintPane> ui_;
    Screen* screen_ = nullptr;
    PagePane* page_ = nullptr;
    int job_ = 0;
    bool is_running_ = false;
    bool is_stopped_ = false;
};

// Keeps the focus where no button is pressed by chance while those of the screen are off: in the
// page when it is there, else on the screen itself.
void hold_focus(Screen& screen, const PagePane& page);

// Said later, behind what closes the screen.
void say_behind_closing(const Screen& screen, const QString& words);

}  // namespace tavernook
