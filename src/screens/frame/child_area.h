// The middle of the main window: the area of the child windows, and the start page that fills it
// as long as none of them is in sight.
#pragma once

#include <QObject>
#include <string>
#include <vector>

class QMdiArea;

namespace tavernook {

class ScreenRegistry;
class StartPage;

class ChildArea : public QObject {
    Q_OBJECT

  public:
    // The registry outlives what it tells here.
    ChildArea(QMdiArea& area, ScreenRegistry& registry, QObject* parent);

    // Before the window goes: what the child windows still do is told nobody.
    void let_go();

    const StartPage& start_page() const { return *start_page_; }

    bool has_child_window() const;  // in sight
    // Of the screen in front, when it fills the area; empty without one.
    QString whole_title() const;
    void set_recent_files(const std::vector<std::string>& paths);
    void refresh(bool project_is_open);

    // Into the child window in front, or else into the start page.
    void focus_child();
    void focus_start_page();

    void tile();
    void cascade();

  Q_SIGNALS:
    void changed();  // another child window, or none, is in front

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void tell_later();
    void cover_area();

    QMdiArea& area_;
    StartPage* start_page_;
    bool gone_ = false;
};

}  // namespace tavernook
