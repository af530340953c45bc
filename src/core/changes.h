// Something changed. Nobody who writes a record says so: at the end of each step the program looks.
//
// A copy of every table is kept as it was at the last look. A look compares the tables with it, a
// block of bytes at a time and record by record only where a block differs. For each subject that
// differs its revision goes up; for each slot that was freed or taken its birth goes up; and the
// copy follows. A full household is 10.8 MB, and a look costs about as much as copying those bytes
// once.
//
// A pane says in a `Seen` what it has drawn from, and asks it at the end of a step and when it
// comes in sight. What must outlive an event, or a box that stands open, is held as a `RowRef`:
// slots are used again, the lowest first, so that the number of a deleted item soon names another
// one.
//
// What can go wrong: a record that is freed and taken again between two looks is taken for the same
// one, with other contents. Every command is a step and ends with a look, so that takes a single
// command that does both; opening a project is one, and tells so by `forget_rows`.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "basics/values.h"

namespace tavernook {

// What a table is about: items with their details and texts, recipes with their yields and
// documents, plans with their quantities, everything that Project Setup edits.
enum class Subject { items, lots, catagories, units, stores, recipes, plans, measures, settings };
inline constexpr int subject_count = 9;

// Higher after a look that found a change.
std::uint32_t revision_of(Subject subject) noexcept;

// At the end of a step, and nowhere else. Memory that no table has used yet is left alone. Where
// there is no memory for the copy, everything counts as changed.
void look_for_changes() noexcept;

// How many looks there have been.
std::uint32_t looks_so_far() noexcept;

// Every row that is remembered has gone: the tables hold another project from now on.
void forget_rows() noexcept;

// What a pane has drawn from. Stale from the look that found a change until it is drawn again.
class Seen {
  public:
    Seen(std::initializer_list<Subject> subjects);
    bool is_stale() const noexcept;
    void renew() noexcept;

  private:
    struct Drawn {
        Subject subject;
        std::uint32_t revision;
    };
    std::vector<Drawn> drawn_;
};

// A record that is remembered from one event to the next: its slot and its birth.
class RowRef {
  public:
    RowRef() = default;  // none

    // `table` is items, catagories, units, stores, recipes, plans (days) or measures. A number that
    // names no live record is none from the start.
    RowRef(Subject table, i16 slot) noexcept;

    // The slot as long as the same record lives there; 0, which means none everywhere, when it has
    // gone.
    i16 now() const noexcept;

    // The same record, or both none.
    bool operator==(const RowRef&) const = default;

  private:
    Subject table_ = Subject::items;
    i16 slot_ = 0;
    std::uint64_t birth_ = 0;
};

}  // namespace tavernook
