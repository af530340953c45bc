// F1, whatever has the focus: the page of the screen in front, or that of the dialog in which it is
// pressed; without a screen the contents. No screen knows of it, and no text field takes the key.
//
// In boxes, in menus and while a project is being saved the key does nothing.
#pragma once

#include <QObject>
#include <QString>

class QKeyEvent;
class QMainWindow;
class QWidget;

namespace tavernook {

class ChildArea;
class SaveProgress;

class HelpKey : public QObject {
    Q_OBJECT

  public:
    // Of the whole program, as long as the main window is there.
    HelpKey(QMainWindow& window, const ChildArea& children, const SaveProgress& progress);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QString screen_around(const QWidget& focused) const;
    void show_help(const QWidget& focused) const;

    const QMainWindow& window_;
    const ChildArea& children_;
    const SaveProgress& progress_;
};

}  // namespace tavernook
