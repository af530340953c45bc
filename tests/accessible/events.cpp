#include "accessible/events.h"

#include <QCoreApplication>
#include <QDBusVariant>
#include <utility>

#include "gui_support/processes.h"

namespace tavernook {

EventListener::EventListener(QDBusConnection bus) {
    for (const char* member : {"PropertyChange", "StateChanged", "Announcement"}) {
        bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                    QLatin1String(member), this, SLOT(hear(QDBusMessage)));
    }
    for (const char* event :
         {"object:property-change", "object:state-changed", "object:announcement"}) {
        auto call =
            QDBusMessage::createMethodCall("org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                           "org.a11y.atspi.Registry", "RegisterEvent");
        call << QLatin1String(event) << QStringList{} << QString();
        bus.call(call, QDBus::Block, process_time_limit_ms);
    }
}

void EventListener::hear(const QDBusMessage& message) {
    const auto value = message.arguments().value(3).value<QDBusVariant>().variant();
    heard_.push_back({message.arguments().value(0).toString(), message.path(), value.toString()});
}

std::vector<FarEvent> EventListener::take() {
    QCoreApplication::processEvents();
    return std::exchange(heard_, {});
}

}  // namespace tavernook
