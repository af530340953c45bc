// The lesson reader: the present lesson (aids/lessons.h), a page at a time, beside the live
// screens. It is told nothing: at the end of each step it shows what has become of the lesson. Its
// text has the size that the project's settings choose.
//
// Alt+Right and Alt+Left turn the pages from anywhere in the window, so that the hands stay in the
// screen that the lesson is about. The buttons bear no letters, which would be taken from that
// screen's own.
#pragma once

#include <memory>
#include <string>

#include "basics/values.h"
#include "screens/parts/screen.h"

namespace tavernook {

namespace Ui {
class tut;
}

class tut : public Screen {
    Q_OBJECT

  public:
    explicit tut(QWidget* parent = nullptr);
    ~tut() override;

    QSize sizeHint() const override;

  Q_SIGNALS:
    void close_wanted();

  protected:
    void follow_changes() override;

  private:
    // What is drawn now.
    struct Shown {
        i16 section = 0;
        std::string title;
        std::string page;
        i16 number = 0;
        i16 count = 0;
        i16 points = 0;
        bool operator==(const Shown&) const = default;
    };

    static Shown present();
    void connect_parts();
    void show_next();
    void show_previous();
    void show_text_size();
    void announce_page();

    std::unique_ptr<Ui::tut> ui_;
    Shown shown_;
};

}  // namespace tavernook
