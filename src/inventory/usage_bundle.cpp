#include "inventory/usage_bundle.h"

#include <map>
#include <optional>
#include <string>

#include "basics/byte_codec.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "inventory/usage_files.h"
#include "inventory/usage_names.h"
#include "inventory/working_copies.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

using Histories = std::map<i16, std::string>;

std::string made_bundle;  // its path, from packing on

std::string bundle_path() {
    return in_reports(project_stem() + ".histories");
}

void write_history(ByteWriter& bundle, i16 item, const std::string& bytes) {
    bundle.write_i16(item);
    bundle.write_i32(static_cast<i32>(bytes.size()));
    bundle.write_bytes(bytes);
}

// False when one could not be read.
bool write_histories(ByteWriter& bundle, std::string_view stem) {
    bool all = true;
    i32 count = 0;
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use == 0) continue;
        all = tried([&] {
                  const std::string bytes = present_usage(stem, item);
                  if (bytes.empty()) return;
                  write_history(bundle, item, bytes);
                  ++count;
              }) &&
              all;
    }
    bundle.write_i16(0);
    bundle.write_i32(count);
    return all;
}

// None for a bundle that is not whole. Fault 62 when it ends too early.
std::optional<Histories> histories_in(std::string_view bundle) {
    Histories found;
    ByteReader reader(bundle);
    for (i16 item = reader.read_i16(); item != 0; item = reader.read_i16()) {
        const i32 length = reader.read_i32();
        if (item < 1 || item > item_capacity || length < 0) return {};
        found[item] = reader.take(static_cast<std::size_t>(length));
    }
    if (reader.read_i32() != static_cast<i32>(found.size())) return {};
    return found;
}

// In one step, by way of the name of a working copy, which the leftovers would be looked for under.
void put_history(i16 item, const std::string& bytes) {
    const std::string working = usage_path(project_stem(), item, working_extension);
    remove_if_there(working);
    files().copy_attributes(project_path, working);
    files().open(working, OpenMode::read_write)->write(0, bytes);
    files().rename(working, usage_path(project_stem(), item, saved_extension));
}

bool remove_own_files(std::string_view extension, const Histories& but) {
    bool all = true;
    const std::string stem = project_stem();
    for (const std::string& name : files().list(reports_folder(), extension)) {
        const auto item = item_of_usage_file(name, stem);
        if (!item || but.contains(*item)) continue;
        all = tried([&] { files().remove(in_reports(name)); }) && all;
    }
    return all;
}

// The histories of the open project from now on.
bool put_histories(const Histories& histories) {
    bool all = true;
    for (const auto& [item, bytes] : histories) {
        all = tried([&, &item = item, &bytes = bytes] { put_history(item, bytes); }) && all;
    }
    all = tried([&] { all = remove_own_files(saved_extension, histories) && all; }) && all;
    return tried([&] { all = remove_own_files(working_extension, {}) && all; }) && all;
}

bool unpack(const std::string& path) {
    std::optional<Histories> histories;
    const std::string bytes = usage_bytes(path);
    tried([&] { histories = histories_in(bytes); });
    const bool all = histories && put_histories(*histories);
    files().flush_all(reports_folder());  // before the bundle goes
    files().remove(path);
    return all;
}

}  // namespace

bool pack_usage_bundle(std::string_view from) noexcept {
    bool all = false;
    const bool packed = tried([&] {
        made_bundle = bundle_path();
        remove_if_there(made_bundle);
        if (!files().exists(reports_folder())) return void(all = true);
        ByteWriter bundle;
        all = write_histories(bundle, from);
        replace_file(made_bundle, bundle.bytes(), project_path);
        files().flush_folder(reports_folder());
    });
    return packed && all;
}

bool unpack_usage_bundle() noexcept {
    bool all = true;
    const bool unpacked = tried([&] {
        if (files().exists(made_bundle)) {
            all = unpack(made_bundle);
        } else {
            all = put_histories({});
        }
    });
    return discard_usage_files() && unpacked && all;
}

void drop_usage_bundle() noexcept {
    tried([] { remove_if_there(made_bundle); });
}

void remove_older_usage_bundle() noexcept {
    tried([] { remove_if_there(bundle_path()); });
}

bool settle_usage_bundle(i64 saved) noexcept {
    bool all = true;
    const bool settled = tried([&] {
        const std::string path = bundle_path();
        if (!files().exists(path)) return;
        if (saved != 0 && files().stamp(path).changed <= saved) {
            all = unpack(path);
        } else {
            files().remove(path);
        }
    });
    return settled && all;
}

}  // namespace tavernook
