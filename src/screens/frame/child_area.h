// The middle of the main window: the area of the child windows, and the start page that fills it
// as long as none of them is in sight.
#pragma once

#include <QObject>
#include <string>
#include <vector>

class QKeyEvent;
class QMdiArea;
class QMdiSubWindow;

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
    // The object name of the screen in front; empty without one.
    QString name_in_front() const;
    void set_recent_files(const std::vector<std::string>& paths);
    void refresh(bool project_is_open);

    // Into the child window in front, where it was last there, or else into the start page.
    void focus_child();
    void focus_start_page();

    // Keys that come while the focus is outside the child windows.
    // This one goes on to the part of the child window in front that had the focus last, and the
    // focus with it; false when there is none.
    bool type_into_screen(QKeyEvent& key);
    // True for Ctrl+Tab and Ctrl+Shift+Tab, which bring another child window in front as they do
    // inside one. Tell the press and release of Ctrl, too: with its release the change comes.
    bool changes_screen(QKeyEvent& key);

    void tile();
    void cascade();

  Q_SIGNALS:
    void changed();  // another child window, or none, is in front

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QMdiSubWindow* front() const;  // in sight, or none
    void tell_later();
    void cover_area();

    QMdiArea& area_;
    StartPage* start_page_;
    bool gone_ = false;
};

}  // namespace tavernook
