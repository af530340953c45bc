#include "screens/frame/port_list.h"

#include "core/project_settings.h"
#include "platform/batch_scanner.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

QString comm_text(int place) {
    return QStringLiteral("Comm %1").arg(place + 1);
}

}  // namespace

PortList::PortList(QWidget* parent) : QComboBox(parent) {
    for (int place = 0; place < comm_ports; ++place) addItem(comm_text(place));
}

void PortList::showPopup() {
    name_ports();
    QComboBox::showPopup();
}

void PortList::name_ports() {
    const std::vector<std::string> names = scanner_device().port_names();
    for (int place = 0; place < count(); ++place) {
        const auto port = static_cast<std::size_t>(place);
        const QString name =
            port < names.size() ? " (" + QString::fromStdString(names[port]) + ')' : QString();
        setItemText(place, comm_text(place) + name);
    }
}

}  // namespace tavernook
