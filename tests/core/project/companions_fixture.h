// home.tvk, saved and opened, with two items that have saved histories and a recipe with a text;
// then both items have moved, the text has changed and the first store is called "Bakery", all
// unsaved.
#pragma once

#include "core/project/companions.h"
#include "core/project/session_testing.h"
#include "inventory/lots.h"
#include "inventory/usage_files.h"
#include "inventory/usage_history.h"
#include "recipes/documents.h"

namespace tavernook {

inline constexpr i16 flour = 3;
inline constexpr i16 salt = 4;
inline constexpr i16 bread = 7;
inline constexpr const char* old_text = "{\\rtf1 Bake for an hour.}";
inline constexpr const char* new_text = "{\\rtf1 Bake for two hours.}";

class Companions : public SessionTest {
  protected:
    Companions() {
        hide_welcome();
        prepare_disk();
        begin_run();
    }

    // Made once, since very many runs begin from them.
    const std::string& home_bytes() {
        static const std::string bytes = [this] {
            make_project(home, "Corner shop", [] {
                for (const i16 item : {flour, salt}) {
                    items[item].in_use = 1;
                    items[item].name = "Item";
                }
                meals[bread].in_use = 1;
                meals[bread].name = "Bread";
                meal_documents[bread] = "*vk14home000007.rtf";
            });
            return read_whole_file(home);
        }();
        return bytes;
    }
    const std::string& cabin_bytes() {
        static const std::string bytes = [this] {
            make_project(cabin, "Market", [] {
                items[flour].in_use = 1;
                meals[bread].in_use = 1;
                meal_documents[bread] = "*vk14cabin000007.rtf";
            });
            return read_whole_file(cabin);
        }();
        return bytes;
    }
    // Everything as after the last save of home.tvk; a project of another household is cabin.tvk.
    void prepare_disk() {
        platform.files.start_over();
        for (const char* folder : {"reports", "recipes"}) {
            std::filesystem::remove_all(in_program(folder));
            platform.disk.make_folder(in_program(folder));
        }
        for (const std::string& name : platform.disk.list(platform.temp.path(), ".tvk")) {
            platform.disk.remove(platform.path(name));
        }
        put(home, home_bytes());
        was_saved_long_ago(home);
        put(report("home", flour), saved_moves);
        put(report("home", salt), saved_moves + saved_moves);
        put(text_path("home"), old_text);
    }
    void put_cabin() {
        put(cabin, cabin_bytes());
        was_saved_long_ago(cabin);
        put(report("cabin", flour), cabin_moves);
        put(text_path("cabin"), cabin_text);
    }
    static void was_saved_long_ago(const std::string& path) {
        std::filesystem::last_write_time(
            path, std::filesystem::last_write_time(path) - std::chrono::hours(1));
    }
    void begin_run() {
        reset_program_state();
        start();
        user_opens(home);
        make_changes();
        forget_steps();
    }
    // The program ended without a word; the next one begins.
    void end_and_start_again() {
        platform.files.start_over();
        platform.lock.held.clear();
        reset_program_state();
        start();
        platform.main.status = {};
    }
    void begin_run_beside_cabin() {
        prepare_disk();
        put_cabin();
        begin_run();
    }
    void make_changes() {
        record_item_usage(flour, 5, usage_added, 0);
        record_item_usage(salt, 6, usage_removed, 1);
        store_document(bread, new_text);
        user_renames_store("Bakery");
    }

    static void put(const std::string& path, const std::string& bytes) {
        write_whole_file(path, bytes);
    }
    std::string report(const std::string& stem, i16 item) {
        return in_program("reports/" + stem + "00000" + std::to_string(item) + ".dat");
    }
    std::string text_path(const std::string& stem) {
        return in_program("recipes/" + stem + "000007.rtf");
    }
    std::string bytes_of(const std::string& path) {
        return platform.disk.exists(path) ? read_whole_file(path) : "none";
    }
    Steps reports() { return platform.disk.list(in_program("reports"), ""); }
    std::string entry(f64 amount, i16 kind, i16 place) const {
        return encode_usage({amount, platform.clock.time, kind, place});
    }

    // What became of the histories of a project: "old", "new", or what they are else.
    std::string histories_of(const std::string& stem) {
        const std::string of_flour = bytes_of(report(stem, flour));
        const std::string of_salt = bytes_of(report(stem, salt));
        if (of_flour == saved_moves && of_salt == saved_moves + saved_moves) return "old";
        if (of_flour == saved_moves + flour_move &&
            of_salt == saved_moves + saved_moves + salt_move) {
            return "new";
        }
        if (of_flour == cabin_moves && of_salt == "none") return "cabin";
        return of_flour == "none" && of_salt == "none" ? "none" : "mixed";
    }
    void expect_saved_state() {
        EXPECT_EQ(histories_of("home"), "old");
        EXPECT_EQ(bytes_of(text_path("home")), old_text);
        EXPECT_EQ(reports(), (Steps{"home000003.dat", "home000004.dat"}));
    }
    void expect_unsaved_changes() {
        EXPECT_EQ(project_modified, i16_true);
        EXPECT_EQ(histories_of("home"), "old");
        EXPECT_EQ(bytes_of(text_path("home")), new_text);
        EXPECT_EQ(reports(),
                  (Steps{"home000003.dat", "home000003.tmp", "home000004.dat", "home000004.tmp"}));
    }
    std::string message() const { return platform.main.status[message_panel]; }

    const std::string saved_moves = encode_usage({1, 45000, usage_added, 0});
    const std::string cabin_moves = encode_usage({9, 44000, usage_added, 2});
    const std::string flour_move = entry(5, usage_added, 0);
    const std::string salt_move = entry(6, usage_removed, 1);
    const std::string cabin_text = "{\\rtf1 Grill.}";
};

}  // namespace tavernook
