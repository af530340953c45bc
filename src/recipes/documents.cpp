#include "recipes/documents.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "basics/code_page.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/rows.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::string_view marker = "*vk14";
constexpr std::string_view rich_text_start = "{\\rtf";
constexpr const char* before_extension = ".before";
constexpr const char* ready_extension = ".ready";

struct ChangedDocument {
    i16 slot = 0;
    std::string path;
    std::string before;  // the path of the content before; empty where there was no file
};

// Since the last save of the project, in the order of their first change.
std::vector<ChangedDocument> changed_documents;

struct CarriedDocument {
    i16 slot = 0;
    std::string entry;  // before it was carried
    std::string from;   // the path of the text under the old name
    std::string ready;  // the path of the copy that waits for the project file
    std::string path;   // and its place
};

// From the beginning of a Save As to its end.
std::vector<CarriedDocument> carried_documents;

std::string& entry_at(i16 slot) {
    if (slot < 1) throw Fault(fault_number::subscript_out_of_range);
    return meal_documents[slot];
}

bool is_blank(std::string_view text) {
    return trim(text).empty();
}

bool is_old_form(std::string_view entry) {
    return trim_left(entry).starts_with(rich_text_start);
}

// Text. "?" would stand for any character outside the code page, so that projects of different
// names would share their documents.
std::string document_stem() {
    const std::string stem = project_stem();
    std::string text = text_from_utf8(stem);
    if (utf8_from_text(text) == stem) return text;
    std::replace(text.begin(), text.end(), '?', '_');
    const std::string mark = "~" + name_number(stem);
    while (utf8_from_text(text).size() + mark.size() > longest_stem) text.pop_back();
    return text + mark;
}

bool is_slot(i16 slot) {
    return slot >= 1 && slot <= meal_capacity;
}

// Empty for a slot that is none.
std::string name_for(i16 slot, const char* extension) {
    if (!is_slot(slot)) return {};
    const std::string number = std::to_string(slot);
    return document_stem() + std::string(6 - number.size(), '0') + number + extension;
}

std::string folder() {
    if (is_blank(recipes_folder)) return in_program_folder("recipes/");
    return recipes_folder.back() == '/' ? recipes_folder : recipes_folder + "/";
}

void make_folder() {
    files().make_folder(folder_of(folder() + "."));
}

// Empty without a name.
std::string path_of(std::string_view name) {
    return name.empty() ? std::string() : folder() + utf8_from_text(name);
}

// The file name that the entry points to; nothing where it points to none.
std::optional<std::string> name_in_entry(std::string_view entry) {
    if (is_blank(entry) || is_old_form(entry)) return {};
    if (entry.starts_with(marker)) entry.remove_prefix(marker.size());
    return std::string(file_name_part(entry));
}

bool names_a_file(std::string_view name) {
    return !is_blank(name) && name != "." && name != "..";
}

std::string read_document(const std::string& path) {
    const auto file = files().open(path, OpenMode::read);
    const i64 length = file->length();
    if (length > longest_document) throw Fault(fault_number::bad_record_number);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
}

void require_readable_length(std::string_view rich_text) {
    if (static_cast<i64>(rich_text.size()) <= longest_document) return;
    throw Fault(fault_number::overflow,
                "The text and its pictures are too large for a recipe.  Take a picture out.");
}

void replace_document(const std::string& path, std::string_view bytes) {
    replace_file(path, bytes, project_path);
    files().flush_folder(folder_of(path));
}

auto change_of(const std::string& path) {
    return std::find_if(changed_documents.begin(), changed_documents.end(),
                        [&](const ChangedDocument& change) { return change.path == path; });
}

void show_in_state() {
    const bool restorable =
        std::any_of(changed_documents.begin(), changed_documents.end(),
                    [](const ChangedDocument& change) { return !change.before.empty(); });
    recipe_text_changed = truth(restorable);
}

void keep_content_before(i16 slot, const std::string& path) {
    if (change_of(path) != changed_documents.end()) return;
    if (!files().exists(path)) {
        changed_documents.push_back({slot, path, {}});
        return;
    }
    const std::string before = path_of(name_for(slot, before_extension));
    // An older file of that name would keep its own rights, and hand them to the text when that
    // goes back.
    if (files().exists(before)) files().copy_attributes(path, before);
    files().copy(path, before);
    files().flush_folder(folder_of(path));
    changed_documents.push_back({slot, path, before});
    show_in_state();
}

// One step that needs no room on the disk.
void put_back(const ChangedDocument& change) {
    files().rename(change.before, change.path);
    files().flush_folder(folder_of(change.path));
}

// The document counts as unchanged before anything can fail behind the one step.
void put_back_alone(const std::string& path) {
    const auto found = change_of(path);
    if (found == changed_documents.end() || found->before.empty()) return;
    files().rename(found->before, path);
    changed_documents.erase(found);
    show_in_state();
    files().flush_folder(folder_of(path));
}

void carry(const ChangedDocument& change) {
    const bool is_still_its_text = document_path(change.slot) == change.path;
    const std::string path = new_document_path(change.slot);
    if (!is_still_its_text || path == change.path) return;
    const std::string ready = path_of(name_for(change.slot, ready_extension));
    std::string& entry = meal_documents[change.slot];
    carried_documents.push_back({change.slot, entry, change.path, ready, path});
    files().copy(change.path, ready);
    entry = current_document_entry(change.slot);
}

// False when it stays where it is; the text under the old name stays with it then.
bool place(const CarriedDocument& carried) {
    return tried([&] {
        files().rename(carried.ready, carried.path);
        const auto change = change_of(carried.from);
        if (!change->before.empty()) files().rename(change->before, change->path);
        files().flush_folder(folder_of(carried.path));
    });
}

// The slot whose text waits under the name, in the open project; 0 for every other name.
i16 slot_of_ready_name(const std::string& name) {
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        if (utf8_from_text(name_for(slot, ready_extension)) == name) return slot;
    }
    return 0;
}

// A text that was stored since is newer than the copy; without any text the copy is all there is.
bool belongs(i16 slot, const std::string& ready, i64 saved) {
    if (meal_documents[slot] != current_document_entry(slot)) return false;
    const std::string place = new_document_path(slot);
    if (!files().exists(place)) return true;
    const i64 copied = files().stamp(ready).changed;
    return saved != 0 && copied <= saved && files().stamp(place).changed <= copied;
}

void settle(i16 slot, const std::string& ready, i64 saved) {
    if (!belongs(slot, ready, saved)) return files().remove(ready);
    files().rename(ready, new_document_path(slot));
    files().flush_folder(folder_of(ready));
}

}  // namespace

std::string current_document_entry(i16 slot) noexcept {
    return is_slot(slot) ? std::string(marker) + name_for(slot, ".rtf") : std::string();
}

std::string document_name(i16 slot) noexcept {
    if (!is_slot(slot)) return {};
    return name_in_entry(meal_documents[slot]).value_or(name_for(slot, ".rtf"));
}

std::string document_path(i16 slot) noexcept {
    return path_of(document_name(slot));
}

std::string new_document_path(i16 slot) noexcept {
    return path_of(name_for(slot, ".rtf"));
}

std::string document_backup_path(i16 slot) noexcept {
    return path_of(name_for(slot, ".bak"));
}

std::string portable_document_name(i16 slot) noexcept {
    if (!is_slot(slot) || !meal_documents[slot].starts_with(marker)) return {};
    const std::string name = name_in_entry(meal_documents[slot]).value_or("");
    return names_a_file(name) ? name : std::string();
}

void make_document_portable(i16 slot) noexcept {
    if (!is_slot(slot)) return;
    std::string& entry = meal_documents[slot];
    const auto name = name_in_entry(entry);
    if (name && entry.find_first_of("\\/") != std::string::npos) {
        entry = std::string(marker).append(*name);
    }
}

std::string path_of_document(std::string_view name) noexcept {
    return path_of(name);
}

void document_was_replaced(const std::string& path) noexcept {
    const auto found = change_of(path);
    if (found == changed_documents.end()) return;
    const std::string before = found->before;
    changed_documents.erase(found);
    show_in_state();
    if (!before.empty()) tried([&] { remove_if_there(before); });
}

StoredDocument stored_document(i16 slot) {
    const std::string& entry = entry_at(slot);
    if (is_blank(entry)) return {};
    if (is_old_form(entry)) return {DocumentKind::old_form, entry, {}};
    make_folder();
    if (!names_a_file(document_name(slot))) throw Fault(fault_number::file_not_found);
    const std::string path = document_path(slot);
    return {DocumentKind::file, read_document(path), path};
}

namespace {

// The recipes whose texts are being stored, each for the sake of the one before it.
std::vector<i16> being_stored;

class BeingStored {
  public:
    explicit BeingStored(i16 slot) { being_stored.push_back(slot); }
    ~BeingStored() { being_stored.pop_back(); }
    BeingStored(const BeingStored&) = delete;
    BeingStored& operator=(const BeingStored&) = delete;
};

bool reads(i16 slot, const std::string& path) {
    return is_live_row(meals, slot) && name_in_entry(meal_documents[slot]) &&
           document_path(slot) == path;
}

// A merge keeps the entries of the other project, so that a recipe may read the file that belongs
// to the slot of another one. It gets a file of its own before that is written.
void hand_over_to_readers(const std::string& path) {
    if (!files().exists(path)) return;
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        const bool waits =
            std::find(being_stored.begin(), being_stored.end(), slot) != being_stored.end();
        if (!waits && reads(slot, path)) store_document(slot, read_document(path));
    }
}

}  // namespace

void store_document(i16 slot, std::string_view rich_text) {
    std::string& entry = entry_at(slot);
    require_readable_length(rich_text);
    const std::string path = new_document_path(slot);
    if (files().is_write_protected(path)) throw Fault(fault_number::permission_denied);
    make_folder();
    const BeingStored this_one(slot);
    hand_over_to_readers(path);
    keep_content_before(slot, path);
    if (!is_old_form(entry)) project_modified = i16_true;
    replace_document(path, rich_text);
    entry = current_document_entry(slot);
}

void store_document_backup(i16 slot, std::string_view rich_text) {
    entry_at(slot);
    const std::string backup = document_backup_path(slot);
    make_folder();
    put_back_alone(new_document_path(slot));
    replace_document(backup, rich_text);
}

void keep_documents() noexcept {
    changed_documents.clear();
    show_in_state();
}

void restore_documents() noexcept {
    const std::vector<ChangedDocument> changes = std::exchange(changed_documents, {});
    show_in_state();
    std::optional<Fault> failure;
    for (const ChangedDocument& change : changes) {
        if (change.before.empty()) continue;
        trap([&] { put_back(change); },
             [&](const Fault& fault) {
                 if (!failure) failure = fault;
             });
    }
    if (failure) show_fault(module_message(*failure));
}

void carry_changed_documents() {
    for (const ChangedDocument& change : changed_documents) carry(change);
    if (!carried_documents.empty()) files().flush_folder(folder_of(folder() + "."));
}

bool place_carried_documents() noexcept {
    bool all = true;
    for (const CarriedDocument& carried : std::exchange(carried_documents, {})) {
        all = place(carried) && all;
    }
    keep_documents();
    return all;
}

void leave_carried_documents() noexcept {
    for (const CarriedDocument& carried : std::exchange(carried_documents, {})) {
        meal_documents[carried.slot] = carried.entry;
        tried([&] { remove_if_there(carried.ready); });
    }
}

bool settle_carried_documents(i64 saved) noexcept {
    bool all = true;
    const bool looked = tried([&] {
        for (const std::string& name : files().list(folder(), ready_extension)) {
            const i16 slot = slot_of_ready_name(name);
            if (slot == 0) continue;
            all = tried([&] { settle(slot, folder() + name, saved); }) && all;
        }
    });
    return looked && all;
}

}  // namespace tavernook
