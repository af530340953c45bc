#include "screens/heard.h"

namespace tavernook {

namespace {

bool is_listening = false;

}  // namespace

std::vector<Heard>& heard() {
    static std::vector<Heard> all;
    return all;
}

Hearing::Hearing() {
    heard().clear();
    is_listening = true;
}

Hearing::~Hearing() {
    is_listening = false;
}

}  // namespace tavernook

// A display made of memory alone has nobody who listens, and Qt lets no handler hear what it would
// tell. So in the test program the call ends here.
void QAccessible::updateAccessibility(QAccessibleEvent* event) {
    if (!tavernook::is_listening || event->object() == nullptr) return;
    QAccessibleInterface* source = event->accessibleInterface();
    if (source == nullptr) return;
    tavernook::heard().push_back({event->object()->objectName(), event->type(),
                                  source->text(QAccessible::Name),
                                  source->text(QAccessible::Value)});
}
