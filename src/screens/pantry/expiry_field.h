// The day until which an item keeps, on a button that brings up the calendar to pick another one.
// What is kept of a picked day is how far it is away: it becomes the storage time.
#pragma once

#include <QWidget>
#include <memory>

#include "basics/date.h"
#include "screens/parts/guard.h"

class QDate;
class QPushButton;

namespace tavernook {

class DatePopup;

namespace Ui {
class ExpiryField;
}

class ExpiryField : public QWidget {
    Q_OBJECT

  public:
    explicit ExpiryField(QWidget* parent = nullptr);
    ~ExpiryField() override;

    void show_date(Date expiry);  // 0: none
    void show_new_item();

    void close_calendar();

    QPushButton& button() const;

  Q_SIGNALS:
    void command(const tavernook::Work& work);  // for the screen to run
    void picked(int days);                      // between that day and today, whichever is first

  private:
    void toggle();
    void take(const QDate& picked_day);

    std::unique_ptr<Ui::ExpiryField> ui_;
    DatePopup* calendar_;
};

}  // namespace tavernook
