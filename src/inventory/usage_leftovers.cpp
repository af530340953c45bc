#include "inventory/usage_leftovers.h"

#include <cmath>
#include <optional>

#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/usage_bundle.h"
#include "inventory/usage_files.h"
#include "inventory/usage_history.h"
#include "inventory/usage_names.h"
#include "inventory/working_copies.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

bool is_sound(std::string_view bytes) {
    const UsageEntry entry = decode_usage(bytes).front();
    const bool kind_is_known = entry.kind == usage_removed || entry.kind == usage_added;
    const bool place_is_known = entry.lot_place >= 0 && entry.lot_place < lot_places;
    return kind_is_known && place_is_known && entry.moved > 0 && std::isfinite(entry.moved) &&
           std::isfinite(entry.amount);
}

// How much of `saved` stays in front of the entry of the working copy: all, or nothing for one
// entry that is not merely the first of `saved`, which would be what is left of a copy that was
// cut. None for what is no continuation.
std::optional<i64> kept_before(std::string_view working, std::string_view saved) {
    if (working.size() == saved.size() + usage_entry_size) {
        const bool fits = working.starts_with(saved) && is_sound(working.substr(saved.size()));
        return fits ? std::optional(static_cast<i64>(saved.size())) : std::nullopt;
    }
    const bool starts_anew = working.size() == usage_entry_size && !saved.starts_with(working);
    return starts_anew && is_sound(working) ? std::optional<i64>(0) : std::nullopt;
}

std::string whole_entries(std::string bytes) {
    bytes.resize(bytes.size() - bytes.size() % usage_entry_size);
    return bytes;
}

bool belongs(const std::string& path, i64 saved) {
    return files().stamp(path).changed <= saved;
}

void settle(const std::string& working, i16 item, i64 saved) {
    if (saved != 0 && items[item].in_use != 0 && belongs(working, saved)) {
        const std::string kept = usage_path(project_stem(), item, saved_extension);
        const std::string bytes = usage_bytes(working);
        const std::string history = usage_bytes(kept);
        auto before = kept_before(bytes, history);
        // Of an entry whose adding was interrupted a part may stand there.
        if (!before) before = kept_before(bytes, whole_entries(history));
        if (before) keep_last_usage(working, kept, *before);
    }
    files().remove(working);
}

bool settle_working_copies(i64 saved) {
    const std::string stem = project_stem();
    bool all = true;
    for (const std::string& name : files().list(reports_folder(), working_extension)) {
        const auto item = item_of_usage_file(name, stem);
        if (!item) continue;
        all = tried([&] { settle(in_reports(name), *item, saved); }) && all;
    }
    return all;
}

}  // namespace

bool settle_usage_files(i64 saved) noexcept {
    bool all = true;
    forget_usage_files();
    const bool looked = tried([&] {
        all = settle_usage_bundle(saved);
        all = settle_working_copies(saved) && all;
    });
    return looked && all;
}

}  // namespace tavernook
