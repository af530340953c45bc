#include "screens/parts/application.h"

#include "screens/parts/guard.h"
#include "screens/parts/label_access.h"

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
        return QApplication::notify(receiver, event);
    } catch (...) {
        tell_of_present_exception();
        return false;
    }
}

int faults_caught_by_net() noexcept {
    return caught;
}

}  // namespace tavernook
