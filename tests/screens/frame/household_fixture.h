// The main window with all its screens and a household on the disk, open and saved: "home.tvk". It
// is Wednesday, 15 May 2024, 12:00. The commands tests walk over it.
#pragma once

#include <QMdiArea>
#include <QToolBar>
#include <QToolButton>

#include "core/program_folders.h"
#include "core/project_settings.h"
#include "inventory/lots.h"
#include "platform_qt/shipped_page_files.h"
#include "reports/pages/shipped_pages.h"
#include "screens/child_screen_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {

class HouseholdTest : public ChildScreenTest {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr i16 milk = 3;  // past its date, so soup is recommended
    static constexpr i16 flour = 8;
    static constexpr i16 soup = 7;  // with milk

    void SetUp() override {
        register_screens(window);
        window.resize(1366, 768);
        platform.disk.make_folder(in_program_folder("reports"));
        ASSERT_TRUE(lay_out_pages(shipped_page_file));
        start();
    }

    void bring_household() {
        platform.dialogs.expect_save("New Project", home);
        press("Ctrl+N");
        fill();
        end_of_step();
        press("Ctrl+S");
        settle();
        ASSERT_EQ(project_modified, i16_false);
    }

    static void put_item(i16 slot, const char* name, const char* barcode, f64 quantity) {
        ItemRecord& item = items[slot];
        item.name = name;
        item.category = 1;
        item.in_use = 1;
        item.qty_units = 1;
        item.serving_size = 1;
        item.servings_per_qty_unit = 1;
        item.serving_size_units = 11;
        item.barcode = barcode;
        init_lot_record(slot);
        ASSERT_EQ(add_to_lots(slot, quantity), -1);
        lots[slot].expiration_date[0] = 46000;
    }
    // A day of May 2024 with soup for two.
    static void plan_soup(i16 slot, i16 day) {
        days[slot].in_use = 1;
        days[slot].year = 2024;
        days[slot].month = 5;
        days[slot].day = day;
        days[slot].planned_meal[1] = soup;
        day_quantities[slot].meal_servings[1] = 2;
    }

    bool is_in_front(const char* name) {
        const auto* area = window.findChild<QMdiArea*>("mdi_area");
        const QWidget* loaded = window.registry().loaded(QLatin1String(name));
        return loaded != nullptr && loaded->isVisible() &&
               area->activeSubWindow() == loaded->parentWidget();
    }

    // As desktops do behind a window that comes and goes.
    void bring_in_front() {
        window.activateWindow();
        settle();
    }

    // "Alt+N" of a caption as the key alone.
    static std::string letter_of(const QString& caption) {
        return QKeySequence::mnemonic(caption).toString().section('+', -1).toStdString();
    }

    const std::string home = platform.path("home.tvk");

  private:
    static void fill() {
        catagories[1].name = "General";
        catagories[1].in_use = 1;
        put_item(milk, "Milk", "1111", 6);
        put_item(flour, "Flour", "2222", 2);
        expiration_warning_days = 10;
        lots[milk].expiration_date[0] = 45427 - 9;
        item_details[milk].manufacturer = 0;
        meals[soup].name = "Soup";
        meals[soup].in_use = 1;
        meals[soup].serving_size_units = 2;
        meal_serving_size[soup] = 4;
        meals[soup].ingredient_item[1] = milk;
        meals[soup].ingredient_qty[1] = 2;
        items[flour].on_shopping_list = i16_true;
        items[flour].shopping_quantity = 4;
        items[flour].store_order = 7;
        plan_soup(1, 16);
        project_modified = i16_true;
    }
};

}  // namespace tavernook
