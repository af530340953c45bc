#include "core/project/companions.h"

#include <optional>

#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/usage_bundle.h"
#include "inventory/usage_files.h"
#include "inventory/usage_leftovers.h"
#include "platform/platform.h"
#include "recipes/documents.h"

namespace tavernook {

namespace {

constexpr const char* not_committed =
    "The usage history of some items could not be saved.  The next save tries it again.";
constexpr const char* not_taken_along =
    "The usage history of some items could not be taken along to the new name.";
constexpr const char* not_removed =
    "Temporary files of the usage history could not be removed.  The next opening tries it again.";
constexpr const char* not_settled =
    "What the last run left of the usage history could not be cleared up.";
constexpr const char* text_not_settled =
    "A recipe text that was saved under this project's name could not be put in its place.";

// Of the project that a Save As leaves.
std::optional<std::string> stem_left;
std::string path_left;
bool are_prepared = false;
bool are_packed = false;

// Of what has been done nothing.
const char* unless(bool done, const char* sentence) {
    return done ? "" : sentence;
}

void tell(const std::string& sentence, const std::string& another = {}) {
    const bool both = !sentence.empty() && !another.empty();
    const std::string text = sentence + (both ? "  " : "") + another;
    if (!text.empty()) tried([&] { main_window().set_status(message_panel, text); });
}

bool take_new_names() {
    return stem_left && *stem_left != project_stem();
}

void commit_under_new_name() {
    const bool texts_placed = place_carried_documents();
    const bool histories_placed = unpack_usage_bundle() && are_packed;
    are_prepared = false;
    // What an earlier run may have left under the name goes; what could not be placed stays.
    const bool texts_settled = texts_placed && settle_carried_documents(0);
    tell(unless(histories_placed, not_taken_along), unless(texts_settled, text_not_settled));
}

void commit_under_the_same_name() {
    keep_documents();
    remove_older_usage_bundle();
    if (commit_usage_files()) {
        tell(unless(discard_usage_files(), not_removed));
    } else {
        tell(not_committed);  // the working copies stay for it
    }
}

}  // namespace

CompanionsTakenAlong::CompanionsTakenAlong() {
    stem_left = project_stem();
    path_left = project_path;
}

CompanionsTakenAlong::~CompanionsTakenAlong() {
    if (are_prepared) {
        leave_carried_documents();
        drop_usage_bundle();
    }
    are_prepared = false;
    stem_left.reset();
    path_left.clear();
}

const std::string& project_left() noexcept {
    return path_left;
}

void prepare_companions() {
    if (!take_new_names()) return;
    are_prepared = true;
    carry_changed_documents();
    are_packed = pack_usage_bundle(*stem_left);
}

void commit_companions() noexcept {
    take_new_names() ? commit_under_new_name() : commit_under_the_same_name();
}

void drop_companions() noexcept {
    restore_documents();
    tell(unless(discard_usage_files(), not_removed));
}

std::optional<FileStamp> stamp_if_readable(const std::string& path) noexcept {
    std::optional<FileStamp> stamp;
    tried([&] { stamp = files().stamp(path); });
    return stamp;
}

void settle_companions(const std::optional<FileStamp>& found) noexcept {
    const std::optional<FileStamp> present = stamp_if_readable(project_path);
    if (!found || !present) return tell(not_settled);
    const bool is_the_same = found != FileStamp{} && is_same_content(*present, *found);
    const i64 saved = is_the_same ? found->changed : 0;
    const bool histories_settled = settle_usage_files(saved);
    const bool texts_settled = settle_carried_documents(saved);
    tell(unless(histories_settled, not_settled), unless(texts_settled, text_not_settled));
}

}  // namespace tavernook
