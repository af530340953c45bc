// The welcome dialog: eight lessons as pictures, and the way to a project of one's own. It comes at
// the start, over the start page, as long as the user lets it, and from the Help menu and the
// lesson reader.
//
// A picture's text stands in the line beneath while the mouse is on it or the keyboard has come to
// it. A click shows what the lesson is about and the reader beside it; lessons on the screens take
// the sample household unless a project is open. Where that cannot be opened, the dialog stays.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "screens/parts/guard.h"

class QToolButton;

namespace tavernook {

struct LessonPicture;

namespace Ui {
class Dialog;
}

class Dialog : public QDialog {
    Q_OBJECT

  public:
    // `run` carries out what a picture stands for as a command of the main window.
    Dialog(QWidget* parent, std::function<void(const Work&)> run);
    ~Dialog() override;

  Q_SIGNALS:
    void new_wanted();
    void open_wanted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void add_pictures();
    QToolButton* add_picture(const LessonPicture& lesson);
    void connect_parts();
    void keep_room_for_texts();
    void choose(const LessonPicture& lesson);
    bool handle_key(std::size_t place, int key);
    void store_wish(bool hidden);

    std::unique_ptr<Ui::Dialog> ui_;
    std::function<void(const Work&)> run_;
    std::vector<QToolButton*> pictures_;  // in rows of four
};

}  // namespace tavernook
