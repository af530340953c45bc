// What a program tells of its own accord while a screen reader listens.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <vector>

namespace tavernook {

struct FarEvent {
    QString kind;   // "accessible-name", "showing" ...
    QString path;   // the part that tells it
    QString words;  // the new name, where that is what is told
};

class EventListener : public QObject {
    Q_OBJECT

  public:
    // The registry tells the programs that somebody listens.
    explicit EventListener(QDBusConnection bus);

    // All since the last time, as far as it arrived before the latest answer on the bus.
    std::vector<FarEvent> take();

  public Q_SLOTS:
    void hear(const QDBusMessage& message);

  private:
    std::vector<FarEvent> heard_;
};

}  // namespace tavernook
