#include "transfer/package.h"

#include <memory>
#include <vector>

#include "basics/code_page.h"
#include "basics/fault.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/main_commands.h"
#include "core/project/names_beside.h"
#include "core/project/project_save.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "transfer/arriving_project.h"
#include "transfer/exchange_words.h"
#include "transfer/export_target.h"
#include "transfer/package_file.h"
#include "transfer/work_progress.h"

namespace tavernook {

namespace {

constexpr const char* pack_procedure = "projpack_pack_click";
constexpr const char* unpack_procedure = "projpack_unpack_click";
constexpr const char* title = "Package Project";
constexpr const char* question_title = "Unpack";
constexpr std::string_view package_extension = ".vpk";

FileDialogRequest package_dialog() {
    return {title, "Tavernook Package Files (*.vpk)|*.vpk", in_program_folder("*.vpk")};
}

// "1 recipe text", "3 recipe texts".
std::string texts(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " recipe text" : " recipe texts");
}

// --- packing -------------------------------------------------------------------------------------

bool save_first() {
    const i16 modified_before = project_modified;
    project_modified = i16_false;
    if (Project_Save(i16_false)) return true;
    project_modified = modified_before;
    return false;
}

// What became of the recipes' texts.
struct PackedTexts {
    std::size_t packed = 0;
    std::vector<std::string> missing;  // names, text
};

void pack_text(i16 slot, PackageWriter& package, PackedTexts& result, const EachBlock& each_block) {
    make_document_portable(slot);
    const std::string name = portable_document_name(slot);
    if (name.empty()) return;
    const std::string path = path_of_document(name);
    if (!files().exists(path)) return result.missing.push_back(name);
    package.add_document(name, *files().open(path, OpenMode::read), each_block);
    ++result.packed;
}

// The project is in before its entries become portable.
PackedTexts write_package(File& file, WorkProgress& progress) {
    PackedTexts result;
    PackageWriter package(file);
    progress.step(10);
    package.put_project(*files().open(project_path, OpenMode::read), [&] { progress.step(10); });
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        const int percent = 20 + 80 * (slot - 1) / meal_capacity;
        progress.step(percent);
        pack_text(slot, package, result, [&] { progress.step(percent); });
    }
    package.finish();
    return result;
}

void tell_of(const PackedTexts& result, const std::string& target) {
    std::string sentence =
        "Packed as " + shown_file_name(target) + ", with " + texts(result.packed);
    if (!result.missing.empty()) {
        sentence += "; " + texts(result.missing.size()) + " could not be found, the first is " +
                    result.missing.front();
    }
    say(sentence + ".");
}

// The save has a progress window of its own.
void pack(const std::string& target) {
    if (!save_first()) {
        return say("The project could not be saved; " + shown_file_name(target) +
                   " was not packed.");
    }
    PackedTexts result;
    {
        WorkProgress progress(title, "Packaging Project...Please Wait");
        main_window().set_status(activity_panel, "Packaging Project...");
        const auto write = [&](File& file) { result = write_package(file, progress); };
        replace_file(target, write, project_path);
        files().flush_folder(folder_of(target));
    }
    tell_of(result, target);
    boxes().message("Project Package Completed.");
}

void ask_and_pack() {
    if (project_open == 0) return;
    const std::string target = export_target(file_dialogs().save_file(package_dialog()),
                                             package_extension, "nothing was packed");
    if (!target.empty()) pack_project(target);
}

// --- unpacking -----------------------------------------------------------------------------------

// "home.vpk" holds "home.tvk"; a name without an ending of three letters gets one.
std::string unpacked_path(const std::string& source) {
    constexpr std::size_t letters = 3;
    const std::size_t name = file_name_part(source).size();
    const bool has_letters = name > letters + 1 && source[source.size() - letters - 1] == '.';
    if (!has_letters) return path_with_ending(source, project_extension);
    return source.substr(0, source.size() - letters) + "tvk";
}

bool may_be_written(const std::string& name, const std::string& path) {
    if (!files().exists(path)) return true;
    return boxes().message("File " + name + " Already Exists. Do you want to overwrite?",
                           Buttons::yes_no, question_title, DefaultButton::no) == Answer::yes;
}

// One package on its way out of its file.
class Unpacking {
  public:
    Unpacking(const std::string& source, const std::string& target)
        : source_(source), project_(target) {}

    // Everything under names of its own.
    void write();

    void put_in_place();

    // What is where now, and why, where it did not come to its end.
    std::string words(const std::string& why = {}) const;

  private:
    void write_text(File& package, const PackedDocument& document, const EachBlock& each_block);

    const std::string& source_;
    ArrivingFile project_;
    std::vector<std::unique_ptr<ArrivingFile>> texts_;
    std::size_t kept_ = 0;    // texts that stay as they were
    std::size_t placed_ = 0;  // texts in their place
    bool is_placed_ = false;
    std::string aside_;
};

void Unpacking::write() {
    WorkProgress progress("Unpack Project", "Unpacking Project...Please Wait");
    main_window().set_status(activity_panel, "Unpacking Project...");
    const auto file = files().open(source_, OpenMode::read);
    const Package package = read_package(*file);
    const auto copy = [&](File& project) {
        copy_bytes(*file, packed_project_position, project, 1, package.project_length,
                   [&] { progress.step(10); });
    };
    project_.write(copy, source_);
    const std::size_t count = package.documents.size();
    for (std::size_t n = 0; n < count; ++n) {
        const int percent = 20 + static_cast<int>(80 * n / count);
        progress.step(percent);
        write_text(*file, package.documents[n], [&] { progress.step(percent); });
    }
    progress.step(100);
}

void Unpacking::write_text(File& package, const PackedDocument& document,
                           const EachBlock& each_block) {
    const std::string path = path_of_document(document.name);
    if (!may_be_written(document.name, path)) {
        ++kept_;
        return;
    }
    if (files().is_write_protected(path)) throw Fault(fault_number::permission_denied);
    // Of two texts of one name the later one counts, as it does where each is written at once.
    std::erase_if(texts_, [&](const auto& earlier) { return earlier->target() == path; });
    texts_.push_back(std::make_unique<ArrivingFile>(path));
    const auto copy = [&](File& text) {
        copy_bytes(package, document.position, text, 1, document.length, each_block);
    };
    texts_.back()->write(copy, files().exists(path) ? path : source_);
}

// The text on show is another one now.
void renew_screen(const std::string& replaced) {
    ports::Mealbuilder* screen = mealbuilder();
    if (screen == nullptr || screen->get_mealid() == 0) return;
    if (is_same_file(replaced, document_path(screen->get_mealid()))) screen->reread_document();
}

void Unpacking::put_in_place() {
    for (const auto& text : texts_) {
        text->put_in_place();
        document_was_replaced(text->target());
        ++placed_;
        renew_screen(text->target());
    }
    if (placed_ > 0) files().flush_folder(folder_of(texts_.front()->target()));
    aside_ = set_project_aside(project_.target());
    project_.put_in_place();
    is_placed_ = true;
    files().flush_folder(folder_of(project_.target()));
}

// As the end of a sentence, in front of what is left.
std::string because(const Fault& fault) {
    const bool is_damaged = fault.number == fault_number::bad_record_number ||
                            fault.number == fault_number::input_past_end;
    return ": " + (is_damaged ? "it is no package, or a damaged one" : fault.description);
}

std::string Unpacking::words(const std::string& why) const {
    std::string words;
    if (is_placed_) {
        words = "Unpacked as " + shown_file_name(project_.target()) + ", with " + texts(placed_);
        if (kept_ > 0)
            words += "; " + texts(kept_) + (kept_ == 1 ? " stays" : " stay") + " as before";
        words += ".";
    } else {
        words = shown_file_name(source_) + " was not unpacked" + why;
        if (placed_ > 0) words += "; " + texts(placed_) + " came in";
        if (placed_ == 0 && aside_.empty()) words += "; nothing has changed";
        words += ".";
    }
    return words + words_of_aside(project_.target(), aside_);
}

void offer_to_open(const std::string& project) {
    const Answer answer =
        boxes().message("Project Package Completed.  Would you like to Open this project now?",
                        Buttons::yes_no, question_title);
    if (answer != Answer::yes) return;
    open_brought_project(unpack_procedure, project, {}, [] { screens().hide_all(); });
}

void unpack_to(const std::string& target, const std::string& source) {
    Unpacking unpacking(source, target);
    const bool done = trap_work(
        [&] {
            unpacking.write();
            unpacking.put_in_place();
        },
        [&](const Fault& fault) {
            say(unpacking.words(because(fault)));
            show_fault("There has been an error in the Unpacking process.");
        },
        [&] { say(unpacking.words()); });
    if (!done) return;
    say(unpacking.words());
    offer_to_open(target);
}

void unpack(const std::string& source) {
    const std::string target = files().behind_link(unpacked_path(source));
    if (project_open != 0 && is_same_file(target, project_path)) {
        return say(
            shown_file_name(target) +
            " is open; nothing was unpacked.  Close it first, or move the package to another "
            "folder.");
    }
    if (is_same_file(target, source)) {
        return say(shown_file_name(source) + " is no package; nothing was unpacked.");
    }
    const ClaimWhileArriving claim(target);
    if (claim.is_granted()) unpack_to(target, source);
}

}  // namespace

void pack_project(const std::string& target) noexcept {
    const auto nothing_packed = [&](const std::string& why) {
        say(shown_file_name(target) + " was not packed: " + why + ".");
    };
    trap_work([&] { pack(target); },
              [&](const Fault& fault) {
                  nothing_packed(fault.description);
                  show_fault("There has been an error in the packaging process.");
              },
              [&] { nothing_packed("cancelled"); });
}

void unpack_project(const std::string& source) noexcept {
    trap([&] { unpack(source); },
         [&](const Fault& fault) {
             say(shown_file_name(source) + " was not unpacked" + because(fault) +
                 "; nothing has changed.");
             show_fault("There has been an error in the Unpacking process.");
         });
}

void projpack_pack() noexcept {
    trap_in_main(pack_procedure, ask_and_pack);
}

void projpack_unpack() noexcept {
    trap_in_main(unpack_procedure,
                 [] { unpack_project(file_dialogs().open_file(package_dialog())); });
}

}  // namespace tavernook
