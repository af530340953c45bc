// The print preview: a page of the program, which can be printed, saved, and written on by hand
// before. What may be done depends on the page's kind (reports/preview.h).
//
// What is typed lives in the page on show alone: a page made anew, in another size say, is without
// it, and so is everything behind "Cancel". Esc in a page that is written on leads out of it only.
//
// A print and a save take their time, and no other command begins meanwhile. A page that is asked
// for by then comes up behind them; whatever closes the screen ends them first and tells so.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/screen_ports.h"
#include "screens/parts/running_work.h"
#include "screens/parts/screen.h"

namespace tavernook {

class PagePane;
class PrintPane;

namespace Ui {
class PP;
}

class PP : public Screen, public ports::PP, public RunningWork {
    Q_OBJECT

  public:
    explicit PP(QWidget* parent = nullptr);
    ~PP() override;

    void show_page() override;
    bool would_be_lost() const override;
    void end_work() override;

  protected:
    void update_commands() override;
    void focusInEvent(QFocusEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void connect_commands();
    void connect_page();
    void take_page();
    void follow_arrival();
    void focus_main_command();

    void edit();
    void insert_image();
    void make_anew();
    void show_look();
    void escape();

    void save();
    void write_file(int job, const std::string& path, const std::optional<std::string>& bytes);

    // A print or a save runs.
    bool is_busy() const;
    bool is_saving(int job) const { return is_saving_ && job == job_; }
    void end(const QString& words);
    void end_jobs();

    std::unique_ptr<Ui::PP> ui_;
    PagePane& page_;
    PrintPane& printing_;
    int job_ = 0;  // the save that was begun last
    bool is_saving_ = false;
    bool page_waits_ = false;  // for the end of the job
    int size_ = 0;             // of the page on show: its place in the list
    bool has_gridlines_ = false;
};

}  // namespace tavernook
