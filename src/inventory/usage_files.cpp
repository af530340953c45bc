#include "inventory/usage_files.h"

#include <set>
#include <utility>

#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "inventory/usage_history.h"
#include "inventory/usage_names.h"
#include "inventory/working_copies.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr auto entry_size = static_cast<i64>(usage_entry_size);

struct WorkingCopy {
    std::string stem;
    i16 item = 0;
    auto operator<=>(const WorkingCopy&) const = default;
};

std::set<WorkingCopy> working_copies;  // made by this program
std::set<WorkingCopy> owed_copies;     // whole ones of a save that could not commit them
std::set<i16> begun_items;             // took their slots since the last save

i64 length_of(const std::string& path) {
    return files().stamp(path).length;
}

// What of the saved file is the item's own.
i64 saved_length(std::string_view stem, i16 item) {
    if (begun_items.contains(item)) return 0;
    return length_of(usage_path(stem, item, saved_extension));
}

// The saved history, alone or with one entry behind it.
bool fits(const std::string& working, i64 saved) {
    const i64 length = length_of(working);
    return length == saved + entry_size || (length == saved && saved > 0);
}

void start_working_copy(const WorkingCopy& copy, i64 saved) {
    const std::string working = usage_path(copy.stem, copy.item, working_extension);
    if (saved > 0) {
        files().copy_unflushed(usage_path(copy.stem, copy.item, saved_extension), working);
    } else {
        remove_if_there(working);
        files().copy_attributes(project_path, working);
    }
    working_copies.insert(copy);
}

// A working copy that has gone has nothing to commit.
void commit(const WorkingCopy& copy) {
    const i64 saved = saved_length(copy.stem, copy.item);
    const std::string working = usage_path(copy.stem, copy.item, working_extension);
    const i64 length = length_of(working);
    const std::string kept = usage_path(copy.stem, copy.item, saved_extension);
    if (length == 0) return void(working_copies.erase(copy));
    if (length == saved && saved > 0) return;  // committed before, and not yet discarded
    if (owed_copies.contains(copy)) {
        files().copy_unflushed(working, kept);  // whatever the attempt before has left
    } else {
        if (length != saved + entry_size) throw Fault(fault_number::bad_record_number);
        owed_copies.insert(copy);
        keep_last_usage(working, kept, saved);
    }
    owed_copies.erase(copy);
    begun_items.erase(copy.item);
}

bool commit_working_copies(const std::string& stem) {
    bool all = true;
    for (const WorkingCopy& copy : std::set(working_copies)) {
        // An item that is gone loses its history below.
        if (copy.stem != stem || items[copy.item].in_use == 0) continue;
        all = tried([&] { commit(copy); }) && all;
    }
    return all;
}

// The item has its slot, but has not moved: the history there is still the former item's.
bool remove_former_histories(const std::string& stem) {
    std::erase_if(begun_items, [&](i16 item) {
        if (working_copies.contains({stem, item}) && items[item].in_use != 0) return false;
        return tried([&] { remove_if_there(usage_path(stem, item, saved_extension)); });
    });
    return begun_items.empty();
}

bool is_orphan(std::string_view name, std::string_view stem) {
    const std::optional<i16> item = item_of_usage_file(name, stem);
    return item && items[*item].in_use == 0;
}

bool remove_orphans() {
    const std::string stem = project_stem();
    bool all = true;
    for (const std::string& name : files().list(reports_folder(), saved_extension)) {
        if (is_orphan(name, stem)) all = tried([&] { files().remove(in_reports(name)); }) && all;
    }
    return all;
}

// What the last save owes it gets now, or from the next opening.
void discard(const WorkingCopy& copy) {
    if (owed_copies.contains(copy)) commit(copy);
    remove_if_there(usage_path(copy.stem, copy.item, working_extension));
}

}  // namespace

void begin_usage_history(i16 item) noexcept {
    tried([item] {
        if (item < 1 || item > item_capacity) return;
        begun_items.insert(item);
        const WorkingCopy former{project_stem(), item};
        if (!working_copies.contains(former)) return;
        remove_if_there(usage_path(former.stem, item, working_extension));
        working_copies.erase(former);
        owed_copies.erase(former);
    });
}

bool has_no_saved_usage(i16 item) noexcept {
    return begun_items.contains(item);
}

bool commit_usage_files() noexcept {
    bool all = false;
    tried([&] {
        const std::string stem = project_stem();
        all = commit_working_copies(stem);
        all = remove_former_histories(stem) && all;
    });
    return remove_orphan_usage_files() && all;
}

bool discard_usage_files() noexcept {
    bool all = true;
    for (const WorkingCopy& copy : std::exchange(working_copies, {})) {
        all = tried([&] { discard(copy); }) && all;
    }
    forget_usage_files();
    return all;
}

bool remove_orphan_usage_files() noexcept {
    bool all = false;
    tried([&] { all = remove_orphans(); });
    return all;
}

void forget_usage_files() noexcept {
    working_copies.clear();
    owed_copies.clear();
    begun_items.clear();
}

void write_usage(i16 item, std::string_view entry) {
    const WorkingCopy copy{project_stem(), item};
    if (owed_copies.contains(copy)) commit(copy);
    const i64 saved = saved_length(copy.stem, item);
    const std::string working = usage_path(copy.stem, item, working_extension);
    if (!working_copies.contains(copy) || !fits(working, saved)) start_working_copy(copy, saved);
    files().open(working, OpenMode::read_write)->write(saved, entry);
}

void keep_last_usage(const std::string& working, const std::string& kept, i64 saved) {
    if (saved == 0) return files().copy_unflushed(working, kept);
    std::string entry(usage_entry_size, '\0');
    entry.resize(files().open(working, OpenMode::read)->read(saved, entry.data(), entry.size()));
    if (entry.size() != usage_entry_size) throw Fault(fault_number::bad_record_number);
    files().open(kept, OpenMode::read_write)->write(saved, entry);
}

std::string present_usage(std::string_view stem, i16 item) {
    const i64 saved = saved_length(stem, item);
    const std::string working = usage_path(stem, item, working_extension);
    if (working_copies.contains({std::string(stem), item}) && fits(working, saved)) {
        return usage_bytes(working);
    }
    return saved > 0 ? usage_bytes(usage_path(stem, item, saved_extension)) : std::string();
}

}  // namespace tavernook
