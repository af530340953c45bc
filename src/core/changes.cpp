#include "core/changes.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>
#include <type_traits>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"

namespace tavernook {

namespace {

std::array<std::uint32_t, subject_count> revisions{};
std::uint64_t present_era = 0;  // a project is opened, another one comes
std::uint32_t looks = 0;

std::size_t place_of(Subject subject) {
    return static_cast<std::size_t>(subject);
}

void note_change(Subject subject) {
    ++revisions[place_of(subject)];
}

bool is_used(const WamRecord& line) {
    return line.in_use != 0;
}
template <typename Record>
bool is_used(const Record& record) {
    return record.in_use == 1;
}

// --- the copies --------------------------------------------------------------------------------

// A table of plain records as it was at the last look.
template <typename Record>
class KeptRecords {
    static_assert(std::is_trivially_copyable_v<Record>);

  public:
    // Calls on_change(slot, before) for each record that differs, and follows. True when any did.
    // What is not a number equals itself here.
    template <typename OnChange>
    bool follow(const Record* now, std::size_t count, OnChange&& on_change) {
        bool any = fit(count);
        for (std::size_t first = 0; first < count; first += block) {
            const std::size_t records = std::min(block, count - first);
            if (same_bytes(now + first, &kept_[first], records)) continue;
            for (std::size_t slot = first; slot < first + records; ++slot) {
                if (same_bytes(now + slot, &kept_[slot], 1) || now[slot] == kept_[slot]) continue;
                on_change(slot, kept_[slot]);
                kept_[slot] = now[slot];
                any = true;
            }
        }
        return any;
    }

    bool was_used(std::size_t slot) const { return slot < kept_.size() && is_used(kept_[slot]); }

  private:
    // A table that grows adds blank records, which are no change; one that shrinks takes what its
    // last ones held.
    bool fit(std::size_t count) {
        const auto gone =
            kept_.begin() + static_cast<std::ptrdiff_t>(std::min(count, kept_.size()));
        const bool any = std::any_of(gone, kept_.end(),
                                     [](const Record& record) { return !(record == Record{}); });
        if (kept_.size() != count) kept_.resize(count);
        return any;
    }

    static constexpr std::size_t block = std::max<std::size_t>(1, 16384 / sizeof(Record));

    static bool same_bytes(const Record* a, const Record* b, std::size_t records) {
        return std::memcmp(static_cast<const void*>(a), static_cast<const void*>(b),
                           records * sizeof(Record)) == 0;
    }

    std::vector<Record> kept_;
};

// A table of texts, all in one piece.
class KeptTexts {
  public:
    template <typename Texts>
    bool follow(const Texts& now) {
        if (is_same(now)) return false;
        bytes_.clear();
        ends_.clear();
        for (const std::string& text : now) {
            bytes_ += text;
            ends_.push_back(bytes_.size());
        }
        return true;
    }

  private:
    template <typename Texts>
    bool is_same(const Texts& now) const {
        if (ends_.empty()) return false;
        std::size_t start = 0;
        auto end = ends_.begin();
        for (const std::string& text : now) {
            const std::size_t length = *end - start;
            if (text.size() != length) return false;
            if (length != 0 && std::memcmp(text.data(), bytes_.data() + start, length) != 0) {
                return false;
            }
            start = *end++;
        }
        return true;
    }

    std::string bytes_;
    std::vector<std::size_t> ends_;
};

// How often each slot of a table was freed or taken.
template <std::size_t Entries>
using Births = std::array<std::uint32_t, Entries>;

Births<item_capacity + 1> item_births{};
Births<catagory_capacity + 1> catagory_births{};
Births<unit_capacity + 1> unit_births{};
Births<store_capacity + 1> store_births{};
Births<meal_capacity + 1> meal_births{};
Births<day_capacity + 1> day_births{};
Births<wam_capacity + 1> wam_births{};

KeptRecords<ItemRecord> kept_items;
KeptRecords<ItemDetailRecord> kept_item_details;
KeptRecords<LotRecord> kept_lots;
KeptRecords<CatagoryRecord> kept_catagories;
KeptRecords<UnitRecord> kept_units;
KeptRecords<StoreRecord> kept_stores;
KeptRecords<MealRecord> kept_meals;
KeptRecords<f64> kept_serving_sizes;
KeptRecords<DayRecord> kept_days;
KeptRecords<DayQuantityRecord> kept_day_quantities;
KeptTexts kept_documents;
KeptTexts kept_pool;

// The measures: which lines are in use, and the texts of all beside it.
struct KeptMeasures {
    KeptTexts texts;
    std::array<i16, wam_capacity + 1> in_use{};

    bool was_used(std::size_t slot) const { return in_use[slot] != 0; }
};
KeptMeasures kept_measures;

// --- one table after the other -----------------------------------------------------------------

template <typename Record, int N>
bool follow_table(KeptRecords<Record>& kept, const Table<Record, N>& table) {
    return table.is_touched() && kept.follow(&table[0], static_cast<std::size_t>(N) + 1,
                                             [](std::size_t, const Record&) {});
}

// With the births of the slots that were freed or taken.
template <typename Record, int N, std::size_t Entries>
bool follow_rows(KeptRecords<Record>& kept, const Table<Record, N>& table,
                 Births<Entries>& births) {
    if (!table.is_touched()) return false;
    const Record* now = &table[0];
    return kept.follow(now, Entries, [&](std::size_t slot, const Record& before) {
        if (is_used(before) != is_used(now[slot])) ++births[slot];
    });
}

template <int N>
bool follow_texts(KeptTexts& kept, const Table<std::string, N>& table) {
    return table.is_touched() && kept.follow(table);
}

bool follow_measures() {
    if (!wams.is_touched()) return false;
    std::vector<std::string> texts;
    bool any = false;
    std::size_t slot = 0;
    for (const WamRecord& line : wams) {
        texts.push_back(line.text);
        i16& before = kept_measures.in_use[slot];
        any |= before != line.in_use;
        if ((before != 0) != is_used(line)) ++wam_births[slot];
        before = line.in_use;
        ++slot;
    }
    const bool other_texts = kept_measures.texts.follow(texts);
    return any || other_texts;
}

// --- the settings ------------------------------------------------------------------------------

struct Settings {
    std::array<i16, 15> numbers{};
    std::array<std::uint64_t, 2> figures{};  // by their bits: what is no number equals itself
    FixedString<128> ftp_server;
    FixedString<64> ftp_account;
    FixedString<32> ftp_password;
    FixedString<128> ftp_directory;
    bool operator==(const Settings&) const = default;
};

Settings present_settings() {
    return {
        {audit_hour, audit_minute, expiration_warning_days, scanner_comm_port, scanner_reserved,
         ftp_send_after_audit, audit_on_startup, save_after_audit, scanner_type, audit_days_ahead,
         currency_symbol, font_size, show_toolbar_text, project_tag, date_day_first},
        {std::bit_cast<std::uint64_t>(sales_tax), std::bit_cast<std::uint64_t>(project_created)},
        ftp_server,
        ftp_account,
        ftp_password,
        ftp_directory};
}

Settings kept_settings;

bool follow_settings() {
    const Settings now = present_settings();
    if (now == kept_settings) return false;
    kept_settings = now;
    return true;
}

using Changed = std::array<bool, subject_count>;

// One after the other, none left out: a copy that does not follow would tell of its change again.
void follow_all(Changed& changed) {
    const auto note = [&changed](Subject subject, bool differs) {
        if (differs) changed[place_of(subject)] = true;
    };
    note(Subject::items, follow_rows(kept_items, items, item_births));
    note(Subject::items, follow_table(kept_item_details, item_details));
    note(Subject::items, follow_texts(kept_pool, pooled_strings));
    note(Subject::lots, kept_lots.follow(&lots[0], static_cast<std::size_t>(lots.entries()),
                                         [](std::size_t, const LotRecord&) {}));
    note(Subject::catagories, follow_rows(kept_catagories, catagories, catagory_births));
    note(Subject::units, follow_rows(kept_units, units, unit_births));
    note(Subject::stores, follow_rows(kept_stores, stores, store_births));
    note(Subject::recipes, follow_rows(kept_meals, meals, meal_births));
    note(Subject::recipes, follow_table(kept_serving_sizes, meal_serving_size));
    note(Subject::recipes, follow_texts(kept_documents, meal_documents));
    note(Subject::plans, follow_rows(kept_days, days, day_births));
    note(Subject::plans, follow_table(kept_day_quantities, day_quantities));
    note(Subject::measures, follow_measures());
    note(Subject::settings, follow_settings());
}

}  // namespace

std::uint32_t revision_of(Subject subject) noexcept {
    return revisions[place_of(subject)];
}

std::uint32_t looks_so_far() noexcept {
    return looks;
}

void look_for_changes() noexcept {
    ++looks;
    Changed changed{};
    try {
        follow_all(changed);
    } catch (...) {
        changed.fill(true);
    }
    for (int n = 0; n < subject_count; ++n) {
        if (changed[static_cast<std::size_t>(n)]) note_change(static_cast<Subject>(n));
    }
}

void forget_rows() noexcept {
    ++present_era;
}

// --- what a pane has drawn from ----------------------------------------------------------------

Seen::Seen(std::initializer_list<Subject> subjects) {
    for (const Subject subject : subjects) drawn_.push_back({subject, revision_of(subject)});
}

bool Seen::is_stale() const noexcept {
    return std::any_of(drawn_.begin(), drawn_.end(), [](const Drawn& drawn) {
        return drawn.revision != revision_of(drawn.subject);
    });
}

void Seen::renew() noexcept {
    for (Drawn& drawn : drawn_) drawn.revision = revision_of(drawn.subject);
}

// --- a record that is remembered ---------------------------------------------------------------

namespace {

// Calls use(table, kept, births) for the table of the subject; a subject without rows has none.
template <typename Use>
auto with_rows(Subject subject, Use&& use) {
    switch (subject) {
        case Subject::items:
            return use(items, kept_items, item_births);
        case Subject::catagories:
            return use(catagories, kept_catagories, catagory_births);
        case Subject::units:
            return use(units, kept_units, unit_births);
        case Subject::stores:
            return use(stores, kept_stores, store_births);
        case Subject::recipes:
            return use(meals, kept_meals, meal_births);
        case Subject::plans:
            return use(days, kept_days, day_births);
        case Subject::measures:
            return use(wams, kept_measures, wam_births);
        default:
            return decltype(use(items, kept_items, item_births)){};
    }
}

bool is_live(Subject subject, i16 slot) {
    return with_rows(subject, [slot](const auto& table, const auto&, const auto&) {
        return is_used(row_or_none(table, slot));
    });
}

// With the one that the next look will find: a record that has come since the last look keeps its
// birth when that look comes.
std::uint64_t birth_of(Subject subject, i16 slot) {
    const auto at = static_cast<std::size_t>(slot);
    const auto birth =
        with_rows(subject, [&](const auto& table, const auto& kept, const auto& births) {
            const bool is_news = is_used(row_or_none(table, slot)) != kept.was_used(at);
            return std::uint64_t{births[at]} + (is_news ? 1U : 0U);
        });
    return birth + (present_era << 32U);
}

}  // namespace

RowRef::RowRef(Subject table, i16 slot) noexcept {
    if (!is_live(table, slot)) return;
    table_ = table;
    slot_ = slot;
    birth_ = birth_of(table, slot);
}

i16 RowRef::now() const noexcept {
    const bool lives = slot_ != 0 && is_live(table_, slot_) && birth_of(table_, slot_) == birth_;
    return lives ? slot_ : i16{0};
}

}  // namespace tavernook
