// A month of days that pops up beside a field, to pick one day from. Today is marked when it comes
// up; Escape or a click beside it closes it with nothing picked, and the focus goes back to the
// field.
#pragma once

#include <QFrame>
#include <QPointer>

#include "screens/parts/qt_dates.h"

class QCalendarWidget;
class QDate;
class QLabel;

namespace tavernook {

class DatePopup : public QFrame {
    Q_OBJECT

  public:
    // Object names of the frame and of its calendar; the heading is the calendar's plus "_label".
    struct Names {
        const char* frame;
        const char* calendar;
    };
    DatePopup(QWidget& parent, const Names& names);

    // Comes up under the place on the field, or above it, wholly on the screen. The heading says
    // what the day is for, and is the calendar's accessible name.
    void ask(QWidget& field, const QRect& place, const QString& heading);

    // The calendar has the heading's name from the start.
    void set_heading(const QString& heading);

  Q_SIGNALS:
    void picked(const QDate& day);  // closed already; once, however often the day was clicked

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void name_parts();
    void name_page(int year, int month);
    void name_part(const char* name, const QString& shown);
    void pick(const QDate& day);

    QLabel* heading_;
    QCalendarWidget* calendar_;
    QPointer<QWidget> field_;
};

}  // namespace tavernook
