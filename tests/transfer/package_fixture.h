// home.tvk on the disk and open, and its package beside it.
#pragma once

#include "core/project/companions.h"
#include "recipes/documents.h"
#include "support/plain_package.h"
#include "transfer/backup_fixture.h"
#include "transfer/package.h"

namespace tavernook {

class PackageTest : public BackupTest {
  protected:
    void user_packs(const std::string& path) {
        platform.dialogs.expect_save("Package Project", path);
        projpack_pack();
    }
    void user_packs_whole() {
        platform.boxes.expect_message("Project Package Completed.");
        user_packs(package);
    }
    void user_unpacks(const std::string& path) {
        platform.dialogs.expect_open("Package Project", path);
        projpack_unpack();
    }
    ExpectedBox& user_is_asked_to_open(Answer answer) {
        return platform.boxes
            .expect_message("Project Package Completed.  Would you like to Open this project now?",
                            answer)
            .title("Unpack")
            .buttons(Buttons::yes_no);
    }
    ExpectedBox& user_is_asked_about(const std::string& name, Answer answer) {
        return platform.boxes
            .expect_message("File " + name + " Already Exists. Do you want to overwrite?", answer)
            .title("Unpack")
            .buttons(Buttons::yes_no)
            .default_button(DefaultButton::no);
    }

    // A recipe with its text on the disk.
    void put_recipe(i16 slot, const std::string& entry, const std::string& name,
                    const std::string& text) {
        meals[slot].name = "Recipe " + std::to_string(slot);
        meals[slot].in_use = 1;
        meal_documents[slot] = entry;
        put_text(name, text);
    }
    void put_text(const std::string& name, const std::string& text) {
        platform.disk.make_folder(in_program("recipes"));
        write_whole_file(in_recipes(name), text);
    }
    std::string in_recipes(const std::string& name) { return in_program("recipes/" + name); }
    std::string text_of(const std::string& name) { return bytes_of(in_recipes(name)); }
    Steps texts_there() { return platform.disk.list(in_program("recipes"), ""); }

    const std::string package = platform.path("trip.vpk");
    const std::string unpacked = platform.path("trip.tvk");
};

}  // namespace tavernook
