// A screen over a dialog that keeps the main window from the user.
#pragma once

#include <QDialog>

namespace tavernook {

// The window around the screen, which it owns. Closing either closes both, unless the screen wants
// to stay.
class ScreenOverDialog : public QDialog {
    Q_OBJECT

  public:
    ScreenOverDialog(QWidget& screen, QWidget& dialog);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget& screen_;
};

}  // namespace tavernook
