// The text of a recipe: a rich-text file of its own in the folder `recipes_folder`, to which the
// entry of `meal_documents` points. A new text is on the disk at once, before the project is saved;
// until the save the content before it lies beside it as the ".before" file, for a "No" to saving.
// The text of a deleted recipe is kept as the ".bak" file until the next recipe of its slot is
// deleted; nothing reads that one.
//
// What reads or writes a text lets its Fault through: the recipe manager tells of it in words of
// its own, and does not let go of what could not be written. Names and paths are empty for a slot
// outside 1..1000.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

inline constexpr i64 longest_document = 128 * 1024 * 1024;  // bytes

enum class DocumentKind {
    none,      // an empty entry: an empty pane, no file
    file,      // the bytes of the file
    old_form,  // the entry itself is the rich text; storing what the pane makes of it migrates it
};

struct StoredDocument {
    DocumentKind kind = DocumentKind::none;
    std::string bytes;
    std::string path;  // of the file that was read, else empty
};

// The entry that the next store_document writes: "*vk14" + stem + the slot with six digits + ".rtf"
// as code page text. A stem that the code page cannot hold is told apart by a number behind it.
std::string current_document_entry(i16 slot) noexcept;

// Text: the file name of the present entry, or the one that a slot without a file will get.
std::string document_name(i16 slot) noexcept;

// Paths, for messages: the file that stored_document reads (where the entry names none, the one
// that will be written), and those that store_document and store_document_backup write.
std::string document_path(i16 slot) noexcept;
std::string new_document_path(i16 slot) noexcept;
std::string document_backup_path(i16 slot) noexcept;

// Text: the file name of an entry that bears the mark of those without a folder, "*vk14"; empty
// for every other entry, for one that can be no file's name, and for a slot outside 1..1000.
std::string portable_document_name(i16 slot) noexcept;

// An entry that is a path becomes portable: what is in front of the file's name goes, and the mark
// takes its place. "\" and "/" separate. All other entries stay, and nothing on the disk changes.
void make_document_portable(i16 slot) noexcept;

// The path of a file of that name, text, among the documents; the folder may be missing.
std::string path_of_document(std::string_view name) noexcept;

// Somebody has replaced the file by another content that is to stay, whatever becomes of the
// project: the content before does not come back. Nothing happens to a file that was not changed
// since the save.
void document_was_replaced(const std::string& path) noexcept;

// Only the file name of an entry counts, and the file is looked for in the recipes folder, which
// is made when it is missing. Fault 53 when there is no such file, 63 when it is longer than
// longest_document, 9 for a slot outside 1..1000, and those of the file layer. The entry stays in
// any case.
StoredDocument stored_document(i16 slot);

// Fault 6, with a description of its own, for a text beyond longest_document, which could not be
// read again, 9 for a slot outside 1..1000, and those of the file layer. Replaces the file of
// current_document_entry in one step, makes it the slot's entry and marks the project as modified
// (a mere migration of the old form does not). A Fault leaves the entry and the old file as they
// were, unless only the flush of the folder failed.
void store_document(i16 slot, std::string_view rich_text);

// The text of a recipe that is being deleted goes into the ".bak" file. The project on the disk
// still points to the document, which therefore takes its content before back first. Throws what
// the file layer throws, and Fault 9 for a slot outside 1..1000.
void store_document_backup(i16 slot, std::string_view rich_text);

// The project has been saved: its documents are those on the disk.
void keep_documents() noexcept;

// The project goes unsaved: each document changed since the save takes its content before back. To
// be called when the screens are gone, and before anything else writes into the folder. Nothing is
// left to restore then; one box tells the first failure.
void restore_documents() noexcept;

// "Save As", while project_path is the new one already. A text that was changed since the last save
// belongs to the new project alone.
//
// Before the project is written: each is copied, as ".ready", beside the file that it will have
// under the new name, and its entry points to that. Throws what the file layer throws.
void carry_changed_documents();

// The project is on the disk: the copies go to their places, and the texts of the old project take
// their content before back. Nothing counts as changed then. False when one could not be placed:
// its copy stays, for settle_carried_documents, and so does the text under the old name.
[[nodiscard]] bool place_carried_documents() noexcept;

// The project could not be written: the copies go and the entries are as they were.
void leave_carried_documents() noexcept;

// At the opening of a project: places the copies that belong to the project file, which was last
// written at `saved` (FileStamp::changed), and deletes all others of the project. With 0 none
// belongs to it but one whose text would else be missing. False when one could not be placed or
// deleted.
[[nodiscard]] bool settle_carried_documents(i64 saved) noexcept;

}  // namespace tavernook
