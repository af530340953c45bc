#include "screens/parts/screen_switch.h"

#include "platform/platform.h"

namespace tavernook {

namespace {

ScreenSwitch* present_switch() {
    return dynamic_cast<ScreenSwitch*>(&screens());
}

}  // namespace

QWidget* show_screen(const QString& name) {
    ScreenSwitch* present = present_switch();
    return present != nullptr && present->show(name) ? present->loaded(name) : nullptr;
}

QWidget* load_screen(const QString& name) {
    ScreenSwitch* present = present_switch();
    return present != nullptr && present->load(name) ? present->loaded(name) : nullptr;
}

}  // namespace tavernook
