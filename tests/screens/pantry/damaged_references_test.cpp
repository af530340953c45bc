// One number in a damaged file that names no row costs that one cell and nothing else: the list of
// the items, the form and the lots stand, no box comes at any rebuild, and the item is accepted.
#include <QTreeView>
#include <array>

#include "core/changes.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "screens/pantry/LotView.h"
#include "screens/pantry/food_inventory_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {
namespace {

class OneDamagedNumber : public FoodInventoryTest {
  protected:
    static constexpr std::array outside = {i16{-1}, i16{-32768}, i16{30001}, i16{32767}};

    void SetUp() override {
        FoodInventoryTest::SetUp();
        put_item(1, "Rice", 1, 2);
        put_item(2, "Salt", 1, 1);
        items[1].qty_units = 10;
        look_for_changes();
        open();
    }

    // In every way in which the screen is filled, with the number shown as nothing in that box.
    template <typename Record>
    void expect_all_stands(i16 Record::*field, Record& record, const char* box) {
        const Record sound = record;
        for (const i16 number : outside) {
            SCOPED_TRACE(number);
            record.*field = number;
            end_of_step();
            screen().populate_tree();
            expect_both_listed();
            screen().populate_Alpha();
            expect_both_listed();
            choose_row("c2");
            choose_row("c1");
            EXPECT_EQ(text("item_name"), "Rice");
            if (box != nullptr) {
                EXPECT_EQ(text(box), "");
            }
            press("F5");
            enter("cost", "4");
            accept();
            EXPECT_EQ(items[1].cost, 4);
            record = sound;
            end_of_step();
            choose_row("c2");
        }
    }
    void expect_both_listed() {
        for (const char* key : {"c1", "c2"}) {
            const QModelIndex row = model().index_of(QLatin1String(key));
            EXPECT_TRUE(row.isValid()) << key;
            EXPECT_FALSE(row.data().toString().isEmpty());
            row.siblingAtColumn(item_stock_column).data();
        }
    }
};

TEST_F(OneDamagedNumber, AUnit) {
    expect_all_stands(&ItemRecord::qty_units, items[1], "qty_units");
    items[1].qty_units = 1001;
    screen().populate_tree();
    EXPECT_EQ(model().index_of("c1").siblingAtColumn(item_stock_column).data().toString(), "2.00");
}

TEST_F(OneDamagedNumber, AUnitOfServings) {
    expect_all_stands(&ItemRecord::serving_size_units, items[1], "serving_size_units");
    screen().set_return(1);  // and of what is added
    expect_all_stands(&ItemRecord::serving_size_units, items[1], "serving_size_units");
}

TEST_F(OneDamagedNumber, AStore) {
    expect_all_stands(&ItemRecord::store, items[1], "store");
}

TEST_F(OneDamagedNumber, ACategory) {
    expect_all_stands(&ItemRecord::category, items[1], nullptr);
    items[1].category = 999;
    end_of_step();
    choose_row("c1");
    EXPECT_EQ(text("item_category"), "General");
}

TEST_F(OneDamagedNumber, ALocation) {
    expect_all_stands(&ItemRecord::locations, items[1], "location_1");
}

TEST_F(OneDamagedNumber, ABrandInTheListAndItsFilter) {
    expect_all_stands(&ItemDetailRecord::brand, item_details[1], "brand");
    item_details[1].brand = 30001;
    screen().populate_tree();
    enter("filter", "rice");
    EXPECT_TRUE(model().index_of("c1").isValid());
    EXPECT_FALSE(model().index_of("c2").isValid());
}

TEST_F(OneDamagedNumber, ATextOfThePool) {
    expect_all_stands(&ItemDetailRecord::manufacturer, item_details[1], "manufacturer");
    expect_all_stands(&ItemDetailRecord::description, item_details[1], "description");
    expect_all_stands(&ItemDetailRecord::notes, item_details[1], "notes");
}

TEST_F(OneDamagedNumber, AUnitOfANutrient) {
    expect_all_stands(&ItemDetailRecord::fat_units, item_details[1], "fat_units");
    expect_all_stands(&ItemDetailRecord::protien_units, item_details[1], "protien_units");
}

TEST_F(OneDamagedNumber, ACurrentLot) {
    expect_all_stands(&LotRecord::current_lot, lots[1], nullptr);
    for (const i16 number : outside) {
        SCOPED_TRACE(number);
        lots[1].current_lot = number;
        end_of_step();
        choose_row("c1");
        enter("quantity", "1.5");
        accept();
        EXPECT_EQ(items[1].quantity, 1.5);
        enter("quantity", "2");
        accept();
        EXPECT_EQ(items[1].quantity, 2);
        lots[1].current_lot = number;
        show_lot_view(1);
        QWidget& view = *window.registry().loaded("LotView");
        EXPECT_EQ(view.findChild<QTreeView*>("lot_list")->model()->rowCount(), 16);
        open();
        choose_row("c2");
    }
}

}  // namespace
}  // namespace tavernook
