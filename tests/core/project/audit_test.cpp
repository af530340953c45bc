// What the audit takes out of the stock, and when.
#include <cmath>
#include <utility>

#include "core/project/audit_fixture.h"

namespace tavernook {
namespace {

TEST_F(AuditTest, APlannedItemIsTakenInItsQuantityUnit) {
    plan_yesterday();
    plan_item(yesterday, 30, flour, 6);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 7);  // 6 / (0.5 x 4) = 3 bags
    EXPECT_EQ(lots[flour].lot_quantity[0], 7);
    EXPECT_EQ(days[yesterday].audited, -1);
}

TEST_F(AuditTest, ARecipeTakesItsIngredientsTimesItsServings) {
    plan_yesterday();
    plan(yesterday, 30, bread, 1.5);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 7.75);   // 3 x 2 / 4 x 1.5 = 2.25
    EXPECT_EQ(items[salt].quantity, 19.625);  // 1 x 2 / 8 x 1.5 = 0.375
    EXPECT_EQ(days[yesterday].audited, -1);
}

TEST_F(AuditTest, AnIngredientWithoutAQuantityTakesOneWholeUnitAServing) {
    put(bread, 1, flour, 0);
    plan_yesterday();
    plan(yesterday, 1, bread, 1.5);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 8.5);
}

TEST_F(AuditTest, ARecipeWithoutAServingSizeTakesOneWholeUnitOfEverything) {
    meal_serving_size[bread] = 0;
    plan_yesterday();
    plan(yesterday, 1, bread, 3);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 7);
    EXPECT_EQ(items[salt].quantity, 17);
    EXPECT_EQ(meal_serving_size[bread], 0);
}

TEST_F(AuditTest, NoServingsTakeNothing) {
    plan_yesterday();
    plan(yesterday, 1, bread, 0);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 10);
    EXPECT_EQ(days[yesterday].audited, -1);
}

TEST_F(AuditTest, ItemsWithoutServingsAreSkippedInSilence) {
    items[flour].servings_per_qty_unit = 0;
    items[flour].serving_size = 0;
    plan_yesterday();
    plan_item(yesterday, 1, flour, 6);
    plan(yesterday, 1, bread, 1);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 10);
    EXPECT_EQ(items[salt].quantity, 19.75);
    EXPECT_EQ(days[yesterday].audited, -1);
}

TEST_F(AuditTest, ARecipeDoesNotAskForTheServingSize) {
    items[flour].serving_size = 0;
    plan_yesterday();
    plan(yesterday, 1, bread, 1);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 8.5);
}

TEST_F(AuditTest, OneDayMayHoldAnItemAndARecipeInSeveralPlaces) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 2);  // 1
    plan_item(yesterday, 2, flour, 1);  // 0.5
    plan(yesterday, 1, bread, 1);       // 1.5
    plan(yesterday, 2, bread, 2);       // 3
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 4);
}

// --- which days ----------------------------------------------------------------------------------

class AuditedDays : public AuditTest {
  protected:
    // One bag on 15 May, today, and one on 16 May.
    AuditedDays() {
        add_day(1, 5, 15, 2024);
        plan_item(1, 1, flour, 2);
        add_day(2, 5, 16, 2024);
        plan_item(2, 1, flour, 2);
    }
    void audit_at(int hour, int minute, int second = 0) {
        platform.clock.time = date_from_moment({2024, 5, 15}, {hour, minute, second});
        audit_inventory();
    }
    void expect_audited(i16 today, i16 tomorrow) {
        EXPECT_EQ(days[1].audited, today);
        EXPECT_EQ(days[2].audited, tomorrow);
        EXPECT_EQ(items[flour].quantity, 10 + today + tomorrow);
    }
};

TEST_F(AuditedDays, TodayIsTakenAtItsFirstMinuteAndTomorrowIsNot) {
    audit_at(0, 1);
    expect_audited(-1, 0);
}

TEST_F(AuditedDays, AtMidnightSharpTodayHasNotBegun) {
    audit_at(0, 0);
    expect_audited(0, 0);
}

TEST_F(AuditedDays, LateInTheEveningTomorrowIsStillLeft) {
    audit_at(23, 59, 59);
    expect_audited(-1, 0);
}

TEST_F(AuditedDays, OneDayAheadTakesTomorrowFromMidnightOn) {
    audit_days_ahead = 1;
    audit_at(0, 0, 1);
    expect_audited(-1, -1);
}

TEST_F(AuditedDays, DaysAheadMayCountBackwards) {
    audit_days_ahead = -1;
    audit_at(12, 0);
    expect_audited(0, 0);
}

TEST_F(AuditedDays, ADayIsTakenOnce) {
    audit_at(12, 0);
    audit_at(13, 0);
    expect_audited(-1, 0);
}

TEST_F(AuditedDays, ADayThatIsMarkedAlreadyIsLeftAlone) {
    days[1].audited = -1;
    audit_at(12, 0);
    EXPECT_EQ(items[flour].quantity, 10);
}

TEST_F(AuditedDays, AFreeSlotIsLeftAloneWhateverItHolds) {
    days[1].in_use = 0;
    audit_at(12, 0);
    expect_audited(0, 0);
}

TEST_F(AuditedDays, ALiveSlotWithoutADateIsLongPast) {
    days[2].month = days[2].day = days[2].year = 0;
    audit_at(12, 0);
    expect_audited(-1, -1);
}

TEST_F(AuditedDays, TheLastSlotIsSeen) {
    add_day(day_capacity, 1, 1, 2020);
    plan_item(day_capacity, 1, salt, 16);
    audit_at(12, 0);
    EXPECT_EQ(items[salt].quantity, 19);
    EXPECT_EQ(days[day_capacity].audited, -1);
}

// --- what is not there --------------------------------------------------------------------------

TEST_F(AuditTest, AnEntryBeyondTheLotsIsToldAndTheOthersGoOn) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 20.5);  // 10.25 of 10
    plan_item(yesterday, 2, salt, 16);     // 1
    plan_item(yesterday, 3, flour, 2);     // 1
    platform.boxes.expect_message(not_enough_of("Flour"));
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 9);
    EXPECT_EQ(items[salt].quantity, 19);
    EXPECT_EQ(days[yesterday].audited, -1);
}

TEST_F(AuditTest, AfterARefusalTheQuantityIsTheSumOfTheLots) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 20.5);  // 10.25 of 10
    items[flour].quantity = 99;
    platform.boxes.expect_message(not_enough_of("Flour"));
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 10);
}

TEST_F(AuditTest, EachSuchEntryIsTold) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 21);
    plan_item(yesterday, 2, flour, 22);
    plan(yesterday, 1, bread, 100);  // 150 of flour, 25 of salt
    platform.boxes.expect_message(not_enough_of("Flour"));
    platform.boxes.expect_message(not_enough_of("Flour"));
    platform.boxes.expect_message(not_enough_of("Flour"));
    platform.boxes.expect_message(not_enough_of("Salt"));
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 10);
    EXPECT_EQ(items[salt].quantity, 20);
    EXPECT_EQ(days[yesterday].audited, -1);
}

TEST_F(AuditTest, ItemsOfADayComeBeforeItsRecipes) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 18);  // 9
    plan(yesterday, 1, bread, 1);        // 1.5: too much behind the item
    platform.boxes.expect_message(not_enough_of("Flour"));
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 1);
}

TEST_F(AuditTest, DaysComeInTheOrderOfTheirSlots) {
    add_day(3, 5, 13, 2024);
    plan_item(3, 1, flour, 18);  // 9
    add_day(5, 5, 1, 2024);      // earlier, and too late
    plan_item(5, 1, flour, 4);   // 2
    platform.boxes.expect_message(not_enough_of("Flour"));
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 1);
    EXPECT_EQ(days[5].audited, -1);
}

TEST_F(AuditTest, AnItemFromBeforeLotsIsTakenFromItsQuantity) {
    const i16 rice = 20;
    items[rice].in_use = 1;
    items[rice].serving_size = 1;
    items[rice].servings_per_qty_unit = 10;
    items[rice].quantity = 5;
    plan_yesterday();
    plan_item(yesterday, 1, rice, 20);
    audit_inventory();
    EXPECT_EQ(items[rice].quantity, 3);
    EXPECT_EQ(lots[rice].lot_quantity[0], 3);
}

TEST_F(AuditTest, StockLeavesTheLotsInTheirOrder) {
    fill_lots(flour, 1, 2, 4);
    plan_yesterday();
    plan_item(yesterday, 1, flour, 5);  // 2.5
    audit_inventory();
    EXPECT_EQ(lots[flour].lot_quantity[0], 0);
    EXPECT_EQ(lots[flour].lot_quantity[1], 0.5);
    EXPECT_EQ(lots[flour].lot_quantity[2], 4);
    EXPECT_EQ(lots[flour].current_lot, 1);
}

// --- failures
// -------------------------------------------------------------------------------------

class AuditFailure : public AuditTest {
  protected:
    // Slot 1 is whole; slot 2 takes salt, then fails at flour; slot 3 is never come to.
    AuditFailure() {
        add_day(1, 5, 14, 2024);
        plan_item(1, 1, flour, 2);
        add_day(2, 5, 13, 2024);
        plan_item(2, 1, salt, 16);
        plan_item(2, 2, 9, 1);
        plan_item(2, 3, flour, 2);
        add_day(3, 5, 12, 2024);
        plan_item(3, 1, flour, 2);
        add_food(9, "Honey", 0, 4, 1);
    }
    void expect_ended_at_slot_2() {
        EXPECT_EQ(days[1].audited, -1);
        EXPECT_EQ(days[2].audited, 0);
        EXPECT_EQ(days[3].audited, 0);
        EXPECT_EQ(items[flour].quantity, 9);
        EXPECT_EQ(items[salt].quantity, 19);
        EXPECT_EQ(items[9].quantity, lot_total(9));
    }
    void expect_all_but_slot_2s_honey() {
        for (const i16 slot : {i16{1}, i16{2}, i16{3}}) EXPECT_EQ(days[slot].audited, -1) << slot;
        EXPECT_EQ(items[flour].quantity, 7);
        EXPECT_EQ(items[salt].quantity, 19);
    }
};

TEST_F(AuditFailure, AServingSizeOf0EndsIt) {
    platform.boxes.expect_message(module_error(11));
    audit_inventory();
    expect_ended_at_slot_2();
}

TEST_F(AuditFailure, ALotBeyond16BitsIsToldAndTheAuditGoesOn) {
    items[9].serving_size = 1;
    fill_lots(9, 32768);
    platform.boxes.expect_message(module_error(6));
    audit_inventory();
    EXPECT_EQ(items[9].quantity, 32768);
    expect_all_but_slot_2s_honey();
}

TEST_F(AuditFailure, BehindALotBeyond16BitsTheNextItemOfTheDayIsTaken) {
    items[9].serving_size = 1;
    fill_lots(9, 40000);
    add_food(20, "Sugar", 1, 1, 3);
    plan_item(2, 4, 20, 1);
    platform.boxes.expect_message(module_error(6));
    audit_inventory();
    EXPECT_EQ(items[9].quantity, 40000);
    EXPECT_EQ(items[20].quantity, 2);
    expect_all_but_slot_2s_honey();
}

TEST_F(AuditFailure, EntriesThatNameNothingLiveTakeNothing) {
    items[9].serving_size = 1;
    add_food(20, "Gone", 1, 1, 3);
    items[20].in_use = 0;
    for (const i16 none : {i16{-9}, i16{10001}, i16{32767}, i16{20}}) {
        days[2].planned_item[2] = none;
        days[2].audited = 0;
        days[2].planned_meal[1] = none;
        audit_inventory();
        EXPECT_EQ(days[2].audited, -1) << none;
    }
    EXPECT_EQ(items[flour].quantity, 4);  // 10 less slots 1 and 3, less slot 2 four times
    EXPECT_EQ(items[20].quantity, 3);
}

TEST_F(AuditFailure, IngredientsThatNameNothingLiveTakeNothing) {
    items[9].serving_size = 1;
    put(bread, 2, 10001, 1);
    put(bread, 3, -1, 1);
    put(bread, 4, 20, 1);  // not live
    plan(2, 1, bread, 1);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 5.5);   // 10 less three places and 3 x 2 / 4
    EXPECT_EQ(items[salt].quantity, 18.75);  // 20 less 1 and 1 x 2 / 8
}

TEST_F(AuditFailure, ADateThatNoCalendarHasIsPassedOver) {
    items[9].serving_size = 1;
    for (const auto& [month, day] :
         {std::pair{13, 1}, {2, 30}, {0, 1}, {5, 0}, {-1, -1}, {4, 31}}) {
        days[2].month = static_cast<i16>(month);
        days[2].day = static_cast<i16>(day);
        audit_inventory();
        EXPECT_EQ(days[2].audited, 0) << month << "/" << day;
    }
    days[2].month = days[2].day = 1;
    for (const i16 year : {i16{99}, i16{-2024}, i16{10000}}) {
        days[2].year = year;
        audit_inventory();
        EXPECT_EQ(days[2].audited, 0) << year;
    }
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(days[3].audited, -1);
    EXPECT_EQ(items[salt].quantity, 20);
    EXPECT_EQ(items[flour].quantity, 8);
}

TEST_F(AuditFailure, AnAmountThatIsNoNumberIsToldAndTheAuditGoesOn) {
    items[9].serving_size = 1;
    day_quantities[2].item_quantity[2] = std::nan("");
    platform.boxes.expect_message(module_error(6));
    audit_inventory();
    EXPECT_EQ(items[9].quantity, 1);
    expect_all_but_slot_2s_honey();
}

TEST_F(AuditFailure, ItTakesTheProgressWindowAwayAndLeavesTheRestUndone) {
    FakeMealPlan planner(platform.calls);
    save_after_audit = i16_true;
    expiring_items[1] = 77;
    items[flour].on_shopping_list = i16_true;  // the scan would take it off
    platform.boxes.expect_message(module_error(11));
    audit_inventory();
    const Texts& events = platform.progress.events();
    EXPECT_EQ(Texts(events.end() - 2, events.end()), (Texts{"hide", "unload"}));
    EXPECT_EQ(platform.calls.entries, (Texts{"status 3 Auditing..."}));
    EXPECT_EQ(expiring_items[1], 77);
    EXPECT_EQ(items[flour].on_shopping_list, i16_true);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(AuditFailure, TheHistoryHoldsWhatWasTaken) {
    platform.boxes.expect_message(module_error(11));
    audit_inventory();
    EXPECT_EQ(decode_usage(report_bytes("pantry000007.tmp")),
              (std::vector<UsageEntry>{{1, now, usage_removed, 0}}));
    EXPECT_EQ(decode_usage(report_bytes("pantry000008.tmp")),
              (std::vector<UsageEntry>{{1, now, usage_removed, 0}}));
}

TEST_F(AuditFailure, TheNextAuditGoesOnWithTheDayThatFailed) {
    platform.boxes.expect_message(module_error(11));
    audit_inventory();
    items[9].serving_size = 1;
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 7);
    EXPECT_EQ(items[salt].quantity, 18);  // once more: nothing was undone
    EXPECT_EQ(items[9].quantity, 0.75);
    EXPECT_EQ(days[3].audited, -1);
}

}  // namespace
}  // namespace tavernook
