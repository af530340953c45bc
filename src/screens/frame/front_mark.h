// The button of the screen in front is checked on the main toolbars, and has the line of the accent
// colour. A press shows its screen and never unchecks it.
#pragma once

#include <QMdiArea>
#include <QObject>
#include <utility>
#include <vector>

class QAction;
class QMainWindow;

namespace tavernook {

class ScreenRegistry;

class FrontMark : public QObject {
  public:
    // The toolbars are filled. Window, registry and area live longer than this.
    FrontMark(QMainWindow& window, const ScreenRegistry& registry, const QMdiArea& area);

  private:
    void follow();

    const ScreenRegistry& registry_;
    const QMdiArea& area_;
    std::vector<std::pair<QAction*, const char*>> commands_;  // and the screen that each shows
};

}  // namespace tavernook
