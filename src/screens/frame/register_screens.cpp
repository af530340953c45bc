#include "screens/frame/register_screens.h"

#include "screens/aids/Calculator.h"
#include "screens/aids/VII.h"
#include "screens/cookbook/Mealbuilder.h"
#include "screens/frame/Main.h"
#include "screens/frame/ProjectSetup.h"
#include "screens/frame/screen_registry.h"
#include "screens/frame/tutorial.h"
#include "screens/grocery/ShoppingList.h"
#include "screens/lookups/StoresForm.h"
#include "screens/lookups/UnitsForm.h"
#include "screens/lookups/wam.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/pantry/LotView.h"
#include "screens/planner/MealPlan.h"
#include "screens/reports/PP.h"
#include "screens/reports/Reports.h"
#include "screens/scanning/BCBuild.h"
#include "screens/scanning/BCGEN.h"
#include "screens/scanning/CS1504GETUPC.h"

namespace tavernook {

namespace {

template <typename Screen>
void add(ScreenRegistry& registry, const char* name, Opens opens = Opens::over_the_area) {
    registry.add(
        QLatin1String(name), [] { return new Screen; }, opens);
}

}  // namespace

void register_screens(Main& main) {
    ScreenRegistry& registry = main.registry();
    add<FoodInventory>(registry, "FoodInventory");
    add<LotView>(registry, "LotView", Opens::at_its_size);
    add<Mealbuilder>(registry, "Mealbuilder");
    add<ShoppingList>(registry, "ShoppingList");
    add<MealPlan>(registry, "MealPlan");
    add<Reports>(registry, "Reports");
    add<StoresForm>(registry, "StoresForm", Opens::at_its_size);
    add<UnitsForm>(registry, "UnitsForm", Opens::at_its_size);
    add<wam>(registry, "wam", Opens::at_its_size);
    add<PP>(registry, "PP");
    add<BCBuild>(registry, "BCBuild");
    add<BCGEN>(registry, "BCGEN", Opens::at_its_size);
    add<CS1504GETUPC>(registry, "CS1504GETUPC");
    add<Calculator>(registry, "Calculator", Opens::at_its_size);
    add<VII>(registry, "VII");
    add<ProjectSetup>(registry, "ProjectSetup", Opens::at_its_size);
    add_tutorial(main);
}

}  // namespace tavernook
