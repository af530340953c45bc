// The first window: the program's name, icon and version while the main window is being loaded.
#pragma once

#include <QFrame>
#include <memory>

namespace tavernook {

namespace Ui {
class Splash;
}

class Splash : public QFrame {
    Q_OBJECT

  public:
    Splash();
    ~Splash() override;

    // In the middle of the screen, painted when this returns.
    void come_up();

  private:
    std::unique_ptr<Ui::Splash> ui_;
};

}  // namespace tavernook
