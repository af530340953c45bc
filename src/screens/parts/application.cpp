#include "screens/parts/application.h"

#include <QPointer>

#include "screens/parts/guard.h"
#include "screens/parts/label_access.h"
#include "screens/parts/menu_key.h"

namespace tavernook {

namespace {

int caught = 0;
bool is_telling = false;

// In a catch block only.
void tell_of_present_exception() noexcept {
    ++caught;
    if (is_telling) return;
    is_telling = true;
    guarded([] { throw; });
    is_telling = false;
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    install_label_access();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        if (event->type() != QEvent::KeyPress) return QApplication::notify(receiver, event);
        const QPointer<QObject> still_here(receiver);
        const bool is_taken = QApplication::notify(receiver, event);
        if (!still_here.isNull()) ask_for_menu_by_keys(*receiver, *event);
        return is_taken;
    } catch (...) {
        tell_of_present_exception();
        return false;
    }
}

int faults_caught_by_net() noexcept {
    return caught;
}

}  // namespace tavernook
