#include "transfer/backup.h"

#include <optional>
#include <utility>

#include "basics/fault.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/main_commands.h"
#include "core/project/names_beside.h"
#include "core/project/previous_version.h"
#include "core/project/project_claim.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "transfer/run_length.h"

namespace tavernook {

namespace {

constexpr const char* backup_procedure = "mnufile_backup_click";
constexpr const char* restore_procedure = "mnuFile_Restore_Click";
constexpr std::string_view backup_extension = ".vzk";
constexpr std::string_view lock_extension = ".lock";

// The title bears it until the user saves the project under a name.
constexpr const char* name_of_restored = "Restored.gif";

class ProgressWindow {
  public:
    ProgressWindow(std::string_view caption, std::string_view label) {
        save_progress().load(caption, label);
        save_progress().show();
        save_progress().workbar(0);
        platform_clock().wait_seconds(1);
    }
    ~ProgressWindow() {
        save_progress().hide();
        save_progress().unload();
    }
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    // Moves the bar, and only when it has to.
    static Progress bar() {
        return [shown = 0](int percent) mutable {
            if (percent != std::exchange(shown, percent)) save_progress().workbar(percent);
        };
    }
};

void say(const std::string& sentence) {
    main_window().set_status(message_panel, sentence);
}

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
    const ProgressWindow progress("Project Back-up", "Compressing Project....Please Wait");
    const auto project = files().open(source, OpenMode::read);
    bool is_complete = false;
    const auto write = [&](File& backup) {
        encode_runs(*project, into(backup), ProgressWindow::bar());
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
    if (bytes < tenth_of_mega) return std::to_string((bytes + kilo - 1) / kilo) + " KB";
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

bool is_same_file(const std::string& a, const std::string& b) {
    const FileStamp stamp = files().stamp(a);
    return a == b || (stamp.node != 0 && stamp == files().stamp(b));
}

// A back-up there would cost the open project's file, another project or what belongs to one.
bool belongs_to_a_project(const std::string& path) {
    return has_ending(path, project_extension) || has_ending(path, lock_extension) ||
           is_same_file(path, project_path) || is_same_file(exact_copy_of(path), project_path);
}

// The dialog gives a name that has a full stop no ending.
std::string with_backup_extension(const std::string& path) {
    return has_ending(path, backup_extension) ? path : path_with_ending(path, backup_extension);
}

// Why the project is not backed up there; empty when it can be. `chosen` is what the user agreed to
// replace.
std::string objection(const std::string& chosen, const std::string& target) {
    const std::string name = shown_file_name(target);
    if (belongs_to_a_project(chosen) || belongs_to_a_project(target)) {
        return shown_file_name(chosen) +
               " is a project's own file; nothing was backed up.  Choose another name.";
    }
    if (target != chosen && files().is_taken(target)) {
        return name + " is there already; nothing was backed up.  Choose another name.";
    }
    if (files().is_write_protected(target)) {
        return name + " is write-protected; nothing was backed up.";
    }
    return {};
}

void back_up() {
    if (project_open == 0) return;
    const std::string chosen = files().behind_link(file_dialogs().save_file(
        {"Back-up Project", "Tavernook Backup (*.vzk)|*.vzk", in_program_folder("*.vzk")}));
    const std::string target = with_backup_extension(chosen);
    const std::string refusal = objection(chosen, target);
    if (!refusal.empty()) return say(refusal);
    tell_of(compress_file(project_path, target), target);
}

// The restored project under a name of its own, until it is put in its place.
class Unpacked {
  public:
    explicit Unpacked(const std::string& target) : path_(path_with_ending(target, ".new")) {
        remove_if_there(path_);  // of a program that was killed
    }
    ~Unpacked() {
        tried([&] { remove_if_there(path_); });
    }
    Unpacked(const Unpacked&) = delete;
    Unpacked& operator=(const Unpacked&) = delete;

    void unpack(const std::string& source) const;
    void move_to(const std::string& target) const {
        files().rename(path_, target);
        files().flush_folder(folder_of(target));
    }

  private:
    std::string path_;
};

// An empty file is no project; nothing but bytes that no run follows make one.
void decode_to(const std::string& path, const std::string& source) {
    const auto backup = files().open(source, OpenMode::read);
    const auto write = [&](File& project) {
        decode_runs(*backup, into(project), ProgressWindow::bar());
        if (project.length() == 0) throw Fault(fault_number::bad_record_number);
    };
    replace_file(path, write, source);
}

void Unpacked::unpack(const std::string& source) const {
    const ProgressWindow progress("Project Restore", "Decompressing Project....Please Wait");
    if (has_ending(source, project_extension)) return files().copy(source, path_);
    decode_to(path_, source);
}

// A numbered name that is free, for a project and for what an interrupted save may leave of it.
std::string free_numbered(const std::string& project) {
    for (int number = 2;; ++number) {
        std::string free = path_beside(project, std::string(" ").append(std::to_string(number)));
        if (!files().is_taken(free) && !previous_version_exists(free)) return free;
    }
}

// The name under which a project that lies there stays, empty when none does.
std::string set_aside(const std::string& project) {
    const bool has_previous = previous_version_exists(project);
    const bool is_there = files().is_taken(project);
    if (!is_there && !has_previous) return {};
    const std::string free = free_numbered(project);
    if (is_there) files().rename(project, free);
    const std::string previous = previous_version_path(free);
    if (has_previous) files().rename(previous_version_path(project), previous);
    return is_there ? free : previous;
}

// Gives a claim back unless the project has been opened.
class ClaimWhileRestoring {
  public:
    explicit ClaimWhileRestoring(const std::string& path) : is_granted_(claim_project(path)) {}
    ~ClaimWhileRestoring() { keep_only_claim(project_open != 0 ? project_path : ""); }
    ClaimWhileRestoring(const ClaimWhileRestoring&) = delete;
    ClaimWhileRestoring& operator=(const ClaimWhileRestoring&) = delete;

    bool is_granted() const { return is_granted_; }

  private:
    bool is_granted_;
};

std::string words_of_aside(const std::string& target, const std::string& aside) {
    if (aside.empty()) return {};
    return "  The " + shown_file_name(target) + " that was there before is now " +
           shown_file_name(aside) + ".";
}

void decompress(const std::string& source, const std::string& target) {
    const ClaimWhileRestoring claim(target);
    if (!claim.is_granted()) return;
    const Unpacked unpacked(target);
    unpacked.unpack(source);
    std::string aside;
    const bool is_open = open_brought_project(restore_procedure, target, name_of_restored, [&] {
        aside = set_aside(target);
        unpacked.move_to(target);
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
    trap([&] { made = compress(source, target); },
         [&](const Fault& fault) {
             made = after_fault(fault, source, target);
             show_fault("Error in compression routine.");
         });
    return made;
}

void decompress_file(const std::string& source, const std::string& target) noexcept {
    trap([&] { decompress(source, target); },
         [&](const Fault& fault) {
             say(shown_file_name(source) + " could not be restored; nothing has changed.");
             show_fault(main_window_message(restore_procedure, fault));
         });
}

void mnuFile_Backup() noexcept {
    trap_in_main(backup_procedure, back_up);
}

void mnuFile_Restore() noexcept {
    trap_in_main(restore_procedure, restore);
}

}  // namespace tavernook
