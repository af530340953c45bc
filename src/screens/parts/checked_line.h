// A line in the accent colour at the foot of a tool button as long as the button is checked: the
// sunken frame that styles draw for that is hardly seen.
#pragma once

#include <QWidget>

class QAbstractButton;

namespace tavernook {

class CheckedLine : public QWidget {
    Q_OBJECT

  public:
    // Lives with the button, which is as checkable as its action makes it.
    explicit CheckedLine(QAbstractButton& button);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void take_place();

    QAbstractButton& button_;
};

}  // namespace tavernook
