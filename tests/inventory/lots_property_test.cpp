// 100,000 random moves beside a plain model of the rules: the same quantities, ring position, dates
// and usage entries after each.
#include <array>
#include <optional>

#include "inventory/pantry_fixture.h"
#include "inventory/usage_history.h"

namespace tavernook {
namespace {

constexpr int model_items = 3;
constexpr int ring = 16;

struct Move {
    f64 amount;
    i16 kind;
    i16 place;
};

enum class Outcome { done, refused, fault };

struct Model {
    std::array<f64, ring> quantity{};
    std::array<f64, ring> created{};
    std::array<f64, ring> expires{};
    int current = 0;
    int keeps_for = 0;
    std::optional<Move> last_move;

    f64 sum() const {
        f64 total = 0;
        for (int place = 0; place < ring; ++place) total = total + quantity[place];
        return total;
    }

    void stamp(int place, f64 now) {
        created[place] = now;
        expires[place] = now + keeps_for;
    }

    Outcome add(f64 amount, f64 now) {
        if (amount == 0) {
            if (quantity[current] == 0) stamp(current, now);
            return Outcome::done;
        }
        for (int step = 0; step < ring; ++step) {
            const int place = (current + step) % ring;
            if (quantity[place] != 0) continue;
            quantity[place] = amount;
            stamp(place, now);
            last_move = Move{amount, 2, static_cast<i16>(place)};
            return Outcome::done;
        }
        current = (current + 1) % ring;
        return Outcome::refused;
    }

    bool nothing_left() const {
        for (int place = 0; place < ring; ++place) {
            if (quantity[place] != 0) return false;
        }
        return true;
    }

    void use_up_current() {
        if (quantity[current] != 0) {
            last_move = Move{quantity[current], 1, static_cast<i16>(current)};
        }
        quantity[current] = created[current] = expires[current] = 0;
        current = (current + 1) % ring;
    }

    Outcome remove(f64 amount) {
        const f64 total = sum();
        if (total < amount) return Outcome::refused;
        if (quantity[current] >= 32767.5) return Outcome::fault;
        if (amount > 0 && amount == total) {
            while (!nothing_left()) use_up_current();
            return Outcome::done;
        }
        for (;;) {
            const f64 d = amount - quantity[current];
            if (d < 0) {
                if (amount != 0) last_move = Move{amount, 1, static_cast<i16>(current)};
                quantity[current] = -d;
                return Outcome::done;
            }
            use_up_current();
            amount = d;
            if (!(amount > 0) || nothing_left()) return Outcome::done;
        }
    }

    void edit(f64 wanted, int place, f64 now) {
        const f64 held = quantity[place];
        if (held == wanted) return;
        last_move = wanted < held ? Move{held - wanted, 1, static_cast<i16>(place)}
                                  : Move{wanted - held, 2, static_cast<i16>(place)};
        quantity[place] = wanted;
        if (created[place] == 0) stamp(place, now);
    }

    void erase(int place) {
        quantity[place] = created[place] = expires[place] = 0;
        if (current == place) current = (current + 1) % ring;
    }

    void choose(int place, f64 now) {
        if (quantity[place] == 0) stamp(place, now);
        current = place;
    }
};

class Dice {
  public:
    explicit Dice(unsigned long long seed) : state_(seed) {}
    int below(int limit) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((state_ >> 33U) % static_cast<unsigned>(limit));
    }

  private:
    unsigned long long state_;
};

class LotsProperty : public PantryTest {
  protected:
    LotsProperty() {
        for (i16 item = 1; item <= model_items; ++item) {
            add_item(item, "Item");
            items[item].storage_time = static_cast<i16>(10 * item);
            models_[item].keeps_for = 10 * item;
        }
    }

    void run(int steps, f64 unit, unsigned long long seed) {
        Dice dice(seed);
        for (int step = 0; step < steps; ++step) {
            platform.clock.time += 1.0 / 1024;
            const auto item = static_cast<i16>(1 + dice.below(model_items));
            move(item, dice, unit);
            compare(item);
            ASSERT_FALSE(HasFailure()) << "step " << step << ", item " << item;
            platform.files.start_over();
            platform.transcript.clear();
            platform.boxes.log.clear();
        }
        // A run that never comes into the corners proves nothing.
        for (const int count : {refused_, faults_, full_, emptied_}) EXPECT_GT(count, steps / 1000);
    }

  private:
    void move(i16 item, Dice& dice, f64 unit) {
        const int place = dice.below(ring);
        switch (dice.below(12)) {
            case 0:
                return erase(item, place);
            case 1:
                return choose(item, place);
            case 2:
            case 3:
                return edit(item, place, edited_quantity(dice, unit));
            case 4:
            case 5:
            case 6:
            case 7:
                return remove(item, removed_quantity(models_[item], dice, unit));
            default:
                return add(item, dice.below(20) == 0 ? 0 : (1 + dice.below(200)) * unit);
        }
    }

    static f64 edited_quantity(Dice& dice, f64 unit) {
        const int kind = dice.below(40);
        if (kind == 0) return 32767.75;
        return kind < 8 ? 0 : dice.below(300) * unit;
    }

    static f64 removed_quantity(const Model& model, Dice& dice, f64 unit) {
        switch (dice.below(10)) {
            case 0:
                return model.sum();
            case 1:
                return model.quantity[model.current];
            case 2:
                return 0;
            case 3:
                return model.sum() + unit;
            default:
                return dice.below(250) * unit;
        }
    }

    void add(i16 item, f64 amount) {
        Model& model = models_[item];
        const Outcome outcome = model.add(amount, platform.clock.time);
        full_ += outcome == Outcome::refused;
        EXPECT_EQ(add_to_lots(item, amount), outcome == Outcome::done ? -1 : 0);
    }

    void remove(i16 item, f64 amount) {
        Model& model = models_[item];
        const Outcome outcome = model.remove(amount);
        emptied_ += outcome == Outcome::done && amount > 0 && model.sum() == 0;
        if (outcome == Outcome::fault) {
            ++faults_;
            expect_trapped(
                6, [&] { return remove_from_lots(item, amount); }, 0);
            return;
        }
        if (outcome == Outcome::refused) {
            ++refused_;
            platform.boxes.expect_message(
                "The quantity that you provided is more than is currently in the inventory for "
                "item Item                             .  Cannot update Inventory.  Please adjust "
                "the quantity to adjust.");
        }
        EXPECT_EQ(remove_from_lots(item, amount), outcome == Outcome::done ? -1 : 0);
    }

    void edit(i16 item, int place, f64 wanted) {
        models_[item].edit(wanted, place, platform.clock.time);
        set_lot_quantity(item, wanted, static_cast<i16>(place));
        items[item].quantity = lot_total(item);
    }

    void erase(i16 item, int place) {
        models_[item].erase(place);
        delete_lot(item, static_cast<i16>(place));
    }

    void choose(i16 item, int place) {
        models_[item].choose(place, platform.clock.time);
        set_current_lot(item, static_cast<i16>(place));
    }

    void compare(i16 item) {
        Model& model = models_[item];
        const LotRecord& record = lots[item];
        for (std::size_t place = 0; place < ring; ++place) {
            EXPECT_EQ(record.lot_quantity[place], model.quantity[place]) << "place " << place;
            EXPECT_EQ(record.creation_date[place], model.created[place]) << "place " << place;
            EXPECT_EQ(record.expiration_date[place], model.expires[place]) << "place " << place;
        }
        EXPECT_EQ(record.current_lot, model.current);
        EXPECT_EQ(items[item].quantity, model.sum());
        compare_last_move(item, model);
    }

    void compare_last_move(i16 item, Model& model) {
        EXPECT_EQ(moves_written() > 0, model.last_move.has_value());
        if (!model.last_move) return;
        const std::string name = "pantry00000" + std::to_string(item) + ".tmp";
        const std::vector<UsageEntry> entries = decode_usage(report_bytes(name));
        ASSERT_EQ(entries.size(), 1u);
        const Move& last = *model.last_move;
        EXPECT_EQ(entries[0],
                  (UsageEntry{last.amount, platform.clock.time, last.kind, last.place}));
        model.last_move.reset();
    }

    std::array<Model, model_items + 1> models_{};
    int refused_ = 0;
    int faults_ = 0;
    int full_ = 0;
    int emptied_ = 0;
};

TEST_F(LotsProperty, BinaryFractionsFollowTheRules) {
    run(100'000, 1.0 / 64, 20240515);
}

TEST_F(LotsProperty, DecimalFractionsFollowTheRules) {
    run(100'000, 0.1, 19991231);
}

}  // namespace
}  // namespace tavernook
