#include "transfer/backup.h"

#include <algorithm>
#include <optional>

#include "basics/fault.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/main_commands.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "transfer/arriving_project.h"
#include "transfer/exchange_words.h"
#include "transfer/export_target.h"
#include "transfer/run_length.h"
#include "transfer/work_progress.h"

namespace tavernook {

namespace {

constexpr const char* backup_procedure = "mnufile_backup_click";
constexpr const char* restore_procedure = "mnuFile_Restore_Click";
constexpr std::string_view backup_extension = ".vzk";

// The title bears it until the user saves the project under a name.
constexpr const char* name_of_restored = "Restored.gif";

std::string exact_copy_of(const std::string& backup) {
    return path_with_ending(backup, project_extension);
}

Outlet into(File& file) {
    return [&file, at = i64{0}](std::string_view bytes) mutable {
        file.write(at, bytes);
        at += static_cast<i64>(bytes.size());
    };
}

bool restores(File& backup, File& source) {
    bool is_same = true;
    i64 at = 0;
    std::string expected;
    const auto compare = [&](std::string_view bytes) {
        expected.resize(bytes.size());
        const std::size_t there = source.read(at, expected.data(), bytes.size());
        is_same = is_same && there == bytes.size() && expected == bytes;
        at += static_cast<i64>(bytes.size());
    };
    decode_runs(backup, compare, [](int) {});
    return is_same && at == source.length();
}

Backup compress(const std::string& source, const std::string& target) {
    WorkProgress progress("Project Back-up", "Compressing Project....Please Wait");
    const auto project = files().open(source, OpenMode::read);
    bool is_complete = false;
    const auto write = [&](File& backup) {
        encode_runs(*project, into(backup), progress.steps());
        is_complete = restores(backup, *project);
        if (!is_complete) files().copy(source, exact_copy_of(target));
    };
    replace_file(target, write, source);
    files().flush_folder(folder_of(target));
    if (is_complete) tried([&] { remove_if_there(exact_copy_of(target)); });
    return is_complete ? Backup::complete : Backup::copied;
}

// A file that cannot be coded can be copied.
Backup after_fault(const Fault& fault, const std::string& source, const std::string& target) {
    const bool can_be_copied = fault.number == fault_number::overflow;
    if (can_be_copied && tried([&] { files().copy(source, exact_copy_of(target)); })) {
        return Backup::copied;
    }
    say("The back-up as " + shown_file_name(target) + " failed: " + fault.description + ".");
    return Backup::failed;
}

i64 length_of(const std::string& path) {
    return files().stamp(path).length;
}

// "3.4 MB", "12 KB".
std::string size_words(i64 bytes) {
    constexpr i64 kilo = 1'000;
    constexpr i64 tenth_of_mega = 100'000;
    if (bytes < tenth_of_mega) {
        return std::to_string(std::max<i64>((bytes + kilo / 2) / kilo, 1)) + " KB";
    }
    const i64 tenths = (bytes + tenth_of_mega / 2) / tenth_of_mega;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

void tell_of(Backup backup, const std::string& target) {
    if (backup == Backup::failed) return;
    const std::string name = shown_file_name(target);
    const std::string copy = exact_copy_of(target);
    std::string sentence = "Backed up as ";
    if (backup == Backup::complete) {
        sentence += name + ", " + size_words(length_of(target)) + " of " +
                    size_words(length_of(project_path));
    } else {
        sentence += shown_file_name(copy) + ", an exact copy of " + size_words(length_of(copy)) +
                    ", as " + name + " cannot hold all of this project";
    }
    if (project_modified != 0) sentence += ", without your unsaved changes";
    say(sentence + ".");
}

// Its copy would take the project's place.
std::string objection(const std::string& chosen, const std::string& target) {
    if (is_same_file(exact_copy_of(target), project_path)) {
        return shown_file_name(chosen) +
               " is a project's own file; nothing was backed up.  Choose another name.";
    }
    return objection_to_target(chosen, target, "nothing was backed up");
}

void back_up() {
    if (project_open == 0) return;
    const std::string chosen = files().behind_link(file_dialogs().save_file(
        {"Back-up Project", "Tavernook Backup (*.vzk)|*.vzk", in_program_folder("*.vzk")}));
    const std::string target = with_extension(chosen, backup_extension);
    const std::string refusal = objection(chosen, target);
    if (!refusal.empty()) return say(refusal);
    tell_of(compress_file(project_path, target), target);
}

// An empty file is no project; nothing but bytes that no run follows make one.
void decode_to(const ArrivingFile& restored, const std::string& source, const Progress& progress) {
    const auto backup = files().open(source, OpenMode::read);
    const auto write = [&](File& project) {
        decode_runs(*backup, into(project), progress);
        if (project.length() == 0) throw Fault(fault_number::bad_record_number);
    };
    restored.write(write, source);
}

void unpack(const ArrivingFile& restored, const std::string& source) {
    WorkProgress progress("Project Restore", "Decompressing Project....Please Wait");
    if (has_ending(source, project_extension)) {
        files().copy(source, restored.path());
        return progress.step(99);
    }
    decode_to(restored, source, progress.steps());
}

void decompress(const std::string& source, const std::string& target) {
    const ClaimWhileArriving claim(target);
    if (!claim.is_granted()) return;
    const ArrivingFile restored(target);
    unpack(restored, source);
    std::string aside;
    const bool is_open = open_brought_project(restore_procedure, target, name_of_restored, [&] {
        aside = set_project_aside(target);
        restored.put_in_place();
        files().flush_folder(folder_of(target));
        screens().hide_all();
    });
    const std::string outcome = is_open && project_open != 0
                                    ? "Restored from " + shown_file_name(source) +
                                          ".  Use Save Project As to give it a name."
                                    : shown_file_name(source) + " was not restored.";
    say(outcome + words_of_aside(target, aside));
}

std::string moment_of(const std::string& path) {
    return date_text(files().modified(path));
}

// What is to be restored; nothing when the user cancels.
std::optional<std::string> chosen_source(const std::string& backup) {
    const std::string copy = exact_copy_of(backup);
    if (has_ending(backup, project_extension) || !files().exists(copy)) return backup;
    const std::string question =
        "Beside " + shown_file_name(backup) + " lies " + shown_file_name(copy) +
        ", an exact copy of the project of " + moment_of(copy) +
        ", made because the back-up could not hold all of it.  Press YES to restore the exact copy "
        "or press NO to restore the back-up of " +
        moment_of(backup) + ".";
    switch (boxes().message(question, Buttons::yes_no_cancel, "Restore Project")) {
        case Answer::yes:
            return copy;
        case Answer::no:
            return backup;
        default:
            return {};
    }
}

void restore() {
    const std::string chosen = file_dialogs().open_file(
        {"Restore Project", "Tavernook Files (*.vzk)|*.vzk", in_program_folder("*.vzk")});
    if (const auto source = chosen_source(chosen)) {
        decompress_file(*source, in_program_folder("restored.tvk"));
    }
}

}  // namespace

Backup compress_file(const std::string& source, const std::string& target) noexcept {
    Backup made = Backup::failed;
    trap_work([&] { made = compress(source, target); },
              [&](const Fault& fault) {
                  made = after_fault(fault, source, target);
                  show_fault("Error in compression routine.");
              },
              [&] { say("The back-up as " + shown_file_name(target) + " was cancelled."); });
    return made;
}

void decompress_file(const std::string& source, const std::string& target) noexcept {
    trap_work([&] { decompress(source, target); },
              [&](const Fault& fault) {
                  say(shown_file_name(source) + " could not be restored; nothing has changed.");
                  show_fault(main_window_message(restore_procedure, fault));
              },
              [&] { say("Cancelled; nothing has changed."); });
}

void mnuFile_Backup() noexcept {
    trap_in_main(backup_procedure, back_up);
}

void mnuFile_Restore() noexcept {
    trap_in_main(restore_procedure, restore);
}

}  // namespace tavernook
