#include "screens/register_screens.h"

#include "platform/platform.h"
#include "screens/FoodInventory.h"
#include "screens/LotView.h"
#include "screens/Main.h"
#include "screens/MealPlan.h"
#include "screens/Mealbuilder.h"
#include "screens/ShoppingList.h"
#include "screens/StoresForm.h"
#include "screens/UnitsForm.h"
#include "screens/screen_registry.h"
#include "screens/wam.h"

namespace tavernook {

namespace {

template <typename Screen>
void add(ScreenRegistry& registry, const char* name) {
    registry.add(QLatin1String(name), [] { return new Screen; });
}

ScreenRegistry* present_registry() {
    return dynamic_cast<ScreenRegistry*>(&screens());
}

}  // namespace

void register_screens(Main& main) {
    ScreenRegistry& registry = main.registry();
    add<FoodInventory>(registry, "FoodInventory");
    add<LotView>(registry, "LotView");
    add<Mealbuilder>(registry, "Mealbuilder");
    add<MealPlan>(registry, "MealPlan");
    add<ShoppingList>(registry, "ShoppingList");
    add<StoresForm>(registry, "StoresForm");
    add<UnitsForm>(registry, "UnitsForm");
    add<wam>(registry, "wam");
}

QWidget* show_screen(const QString& name) {
    ScreenRegistry* registry = present_registry();
    return registry != nullptr && registry->show(name) ? registry->loaded(name) : nullptr;
}

QWidget* load_screen(const QString& name) {
    ScreenRegistry* registry = present_registry();
    return registry != nullptr && registry->load(name) ? registry->loaded(name) : nullptr;
}

bool knows_screen(const QString& name) {
    const ScreenRegistry* registry = present_registry();
    return registry != nullptr && registry->knows(name);
}

}  // namespace tavernook
