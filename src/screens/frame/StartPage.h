// What the main window shows while no screen is open in it: what to do first, with the commands
// for that, the sample and the recent projects; with a project open, what this is. The first that
// it offers is to go on with the newest recent project whose file is there; it looks for that when
// the projects are set and whenever it comes in sight.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

namespace tavernook {

namespace Ui {
class StartPage;
}

class StartPage : public QWidget {
    Q_OBJECT

  public:
    explicit StartPage(QWidget* parent);
    ~StartPage() override;

    void show_idle();
    bool is_idle() const { return idle_; }
    void show_project(const QString& name, const QString& line);
    void set_recent_files(const std::vector<std::string>& paths);

    // The keyboard's way in.
    void focus_first();

  Q_SIGNALS:
    void new_wanted();
    void open_wanted();
    void sample_wanted();
    void recent_wanted(int index);  // from 0

  protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void show_parts(bool idle);
    void offer_to_continue();
    void follow_palette_and_font();
    void add_link(std::size_t place);
    QString folder_of_link(std::size_t place) const;

    std::unique_ptr<Ui::StartPage> ui_;
    std::vector<std::string> paths_;
    int newest_ = -1;  // place of the project to go on with
    bool idle_ = true;
    bool following_ = false;
};

}  // namespace tavernook
