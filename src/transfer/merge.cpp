#include "transfer/merge.h"

#include <array>
#include <memory>
#include <optional>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/audit.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/project_file/project_file_format.h"
#include "core/project_file/project_file_reader.h"
#include "core/project_settings.h"
#include "inventory/usage_files.h"
#include "platform/platform.h"
#include "shopping/shopping_list.h"
#include "transfer/exchange_words.h"
#include "transfer/import_tally.h"
#include "transfer/kept_tables.h"
#include "transfer/merge_sections.h"
#include "transfer/work_progress.h"

namespace tavernook {

std::string merge_path;

namespace {

constexpr const char* procedure = "mnuFile_ProjectMerge_Click";

// What the front of a file holds, as the open project has it; back again at the end.
class KeptFront {
  public:
    KeptFront() = default;
    ~KeptFront() {
        project_header = header_;
        show_toolbar_text = toolbar_text_;
        project_tag = tag_;
        project_reserved_words = words_;
    }
    KeptFront(const KeptFront&) = delete;
    KeptFront& operator=(const KeptFront&) = delete;

  private:
    ProjectHeader header_ = project_header;
    i16 toolbar_text_ = show_toolbar_text;
    i16 tag_ = project_tag;
    std::array<i16, 11> words_ = project_reserved_words;
};

// Moves the bar as records come.
class RecordProgress {
  public:
    explicit RecordProgress(WorkProgress& progress) : progress_(progress) {}

    void expect(int records) { expected_ = records; }
    EachRecord each() {
        return [this] {
            constexpr int often_enough = 64;
            if (++done_ % often_enough == 1) progress_.step(99 * (done_ - 1) / expected_);
        };
    }

  private:
    WorkProgress& progress_;
    int expected_ = 1;
    int done_ = 0;
};

int records_in_header() {
    return project_header.catagories.count + project_header.units.count +
           project_header.stores.count + project_header.items.count + project_header.meals.count;
}

// A save did not come to its end, or what it wrote last lies beyond the end of the file.
bool ends_early(File& file) {
    if (project_file::is_marked_in_writing(file)) return true;
    if (file_version != project_file::current_file_version) return false;
    const i32 slot = project_header.setup_position + project_file::setup_meal_servings_slot;
    return project_file::read_position(file, slot) > file.length();
}

// What came of reading the file.
struct Merged {
    std::vector<i16> items;  // the slots that they took
    LeftOut left_out;
    bool is_cut = false;
};

// What items refer to is here; the settings are those of before.
Merged merge_tables() {
    Merged merged;
    WorkProgress progress("Merge Projects", "Merging Projects...Please Wait");
    main_window().set_status(activity_panel, "Merging Projects...");
    const auto file = files().open(merge_path, OpenMode::read);
    const KeptFront front;
    project_file::read_front(*file);
    RecordProgress records(progress);
    records.expect(records_in_header());
    const EachRecord each_record = records.each();
    merged.is_cut = ends_early(*file);
    MergedSections sections(*file, each_record, merged.left_out);
    sections.read_catagories();
    sections.read_units();
    sections.read_stores();
    sections.read_items();
    sections.read_meals();
    merge_wams(*file, merged.left_out);
    progress.step(100);
    merged.items = sections.new_items();
    return merged;
}

void audit_if_wanted() {
    if (audit_on_startup != 0) {
        audit_inventory();
        build_shopping_list();
    }
    show_audit_time();
}

void merge() {
    const ImportTally tally;
    const Merged merged = merge_tables();
    // Only now: a merge that is put back has taken no slot.
    for (const i16 item : merged.items) begin_usage_history(item);
    const std::string words = tally.words();
    if (tally.gained() != LiveCounts{}) project_modified = i16_true;
    audit_if_wanted();
    say("Merged from " + shown_file_name(merge_path) + ": " + words + merged.left_out.words() +
        (merged.is_cut ? "; that file ends early, and what it lacks is not here" : "") + ".");
}

void tell_of(const Fault& fault) {
    if (fault.number == fault_number::file_not_found) {
        project_load_failed = i16_true;
        return show_fault("File Does Not Exist");
    }
    show_fault(main_window_message(procedure, fault));
}

void merge_or_put_back() {
    const KeptTables before;
    const auto put_back = [&] {
        before.put_back();
        say(shown_file_name(merge_path) + " was not merged; nothing has changed.");
    };
    trap_work([] { merge(); },
              [&](const Fault& fault) {
                  put_back();
                  tell_of(fault);
              },
              put_back);
}

}  // namespace

void merge_project() noexcept {
    trap_in_main(procedure, merge_or_put_back);
}

void mnuFile_ProjectMerge() noexcept {
    if (project_open == 0) return;
    trap_in_main(procedure, [] {
        merge_path = file_dialogs().open_file(
            {"Merge Projects", "Tavernook Files (*.tvk)|*.tvk", in_program_folder("*.tvk")});
        merge_project();
    });
}

}  // namespace tavernook
