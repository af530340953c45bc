// What assistive technology hears of the windows, as it is told.
#pragma once

#include <QAccessible>
#include <QString>
#include <vector>

namespace tavernook {

struct Heard {
    QString object;
    QAccessible::Event event;
    QString name;
    QString value;
};

// All that was heard while a `Hearing` lives, from its beginning.
std::vector<Heard>& heard();

class Hearing {
  public:
    Hearing();
    ~Hearing();
    Hearing(const Hearing&) = delete;
    Hearing& operator=(const Hearing&) = delete;
};

}  // namespace tavernook
