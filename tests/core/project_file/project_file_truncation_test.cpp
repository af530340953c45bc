// Files cut at every length and damaged in every field: they open or give their message, and
// nothing on the disk changes.
//
// Thousands of cases would take minutes through Project_Open. The front, the sections, the setup
// block and the lots are therefore read by the reader's own routines, in the order of the opening,
// from a file in memory; each border behind them, and every position, goes through Project_Open.
#include <functional>

#include "../../../fuzz/memory_files.h"
#include "core/project_file/project_file_reader.h"
#include "core/project_file/project_file_testing.h"

namespace tavernook {

namespace {

constexpr int damaging_bytes[] = {0x00, 0x7F, 0x80, 0xFF};

// The number of the Fault that the work ends with, else 0. Anything but a Fault fails the test.
int fault_of(const std::function<void()>& work) {
    try {
        work();
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

int fault_of_sections(File& file) {
    return fault_of([&] {
        project_file::read_front(file);
        project_file::read_item_section(file);
        project_file::read_catagory_section(file);
        project_file::read_meal_section(file);
        project_file::read_unit_section(file);
        project_file::read_store_section(file);
        project_file::read_day_section(file);
        project_file::BlockPositions positions;
        project_file::read_setup_block(file, positions);
        project_file::read_documents(file);
    });
}

class ProjectFileTruncation : public ProjectFileTest {
  protected:
    ProjectFileTruncation() {
        fill_small_project();
        bytes = save();
        setup = static_cast<std::size_t>(long_at(bytes, 39));
        documents = static_cast<std::size_t>(long_at(bytes, 43));
        measures = static_cast<std::size_t>(long_at(bytes, 50));
        lots_position = static_cast<std::size_t>(long_at(bytes, 54));
        for (const std::size_t slot : {setup + 410, setup + 416, setup + 422, setup + 428}) {
            blocks.push_back(static_cast<std::size_t>(long_at(bytes, slot)));
        }
    }

    // Whether it opens; if not, this box must have been shown and nothing else.
    bool opens(std::string_view damaged) {
        note_boxes();
        open(damaged);
        EXPECT_TRUE(read_whole_file(home) == damaged);
        EXPECT_EQ(platform.disk.list(platform.temp.path(), ""),
                  std::vector<std::string>{"home.tvk"});
        if (project_load_failed == 0) {
            expect_opened();
            tells_an_early_end =
                notes.texts.size() == 1 && notes.texts[0].find(" ends too early: ") != npos;
            EXPECT_TRUE(notes.texts.empty() || tells_an_early_end) << notes.texts[0];
            return true;
        }
        expect_gave_up();
        return false;
    }
    void expect_opens_or_tells(std::string_view damaged) {
        if (opens(damaged)) return;
        ASSERT_EQ(notes.texts.size(), 1U);
        EXPECT_TRUE(notes.texts[0] == bad_record_box || notes.texts[0] == corrupted_box)
            << notes.texts[0];
    }
    void expect_bad_record(std::string_view damaged) {
        EXPECT_FALSE(opens(damaged));
        EXPECT_EQ(notes.texts, std::vector<std::string>{bad_record_box});
    }

    static constexpr auto npos = std::string::npos;
    bool tells_an_early_end = false;  // of the last file that opened
    std::string bytes;
    std::size_t setup, documents, measures, lots_position;
    std::vector<std::size_t> blocks;  // details, strings, day quantities, recipe servings
};

TEST_F(ProjectFileTruncation, EveryLengthUpToTheEndOfTheDocumentsIsABadRecord) {
    const std::size_t end = measures - 2;  // the last byte of the documents
    for (std::size_t length = 0; length < end; ++length) {
        VirtualFile file(bytes, static_cast<i64>(length));
        ASSERT_EQ(fault_of_sections(file), 63) << length;
    }
    VirtualFile whole(bytes, static_cast<i64>(end));
    EXPECT_EQ(fault_of_sections(whole), 0);
}

TEST_F(ProjectFileTruncation, LengthsAroundEveryBorderOpenOnlyInsideTheRecipeServings) {
    const std::size_t servings = blocks.back();
    std::vector<std::size_t> borders = {0, 100, setup, documents, measures, lots_position};
    borders.insert(borders.end(), blocks.begin(), blocks.end());
    borders.push_back(bytes.size());
    for (const std::size_t border : borders) {
        const std::size_t first = border < 40 ? 0 : border - 40;
        for (std::size_t length = first; length <= std::min(border + 40, bytes.size());
             length += case_stride) {
            SCOPED_TRACE(length);
            const std::string_view cut = std::string_view(bytes).substr(0, length);
            if (length >= servings) {
                EXPECT_TRUE(opens(cut));
                EXPECT_EQ(tells_an_early_end, length < bytes.size());
            } else {
                expect_bad_record(cut);
            }
        }
    }
}

TEST_F(ProjectFileTruncation, LengthsInsideTheBlocksAreBadRecords) {
    for (std::size_t length = measures; length < blocks.back(); length += 19997 * case_stride) {
        SCOPED_TRACE(length);
        expect_bad_record(std::string_view(bytes).substr(0, length));
    }
}

TEST_F(ProjectFileTruncation, EveryDamagedByteUpToTheDocumentsIsReadOrRefused) {
    std::string damaged = bytes.substr(0, measures);
    for (std::size_t at = 0; at < documents + 40; at += case_stride) {
        for (const int byte : damaging_bytes) {
            damaged[at] = static_cast<char>(byte);
            VirtualFile file(damaged, static_cast<i64>(bytes.size()));
            const int fault = fault_of_sections(file);
            ASSERT_TRUE(fault == 0 || fault == 63 || fault == 9) << at << ": fault " << fault;
            ASSERT_TRUE(currency_symbol == 36 || currency_symbol == 165 || currency_symbol == 163);
        }
        damaged[at] = bytes[at];
    }
}

TEST_F(ProjectFileTruncation, EveryDamagedByteOfTheLotHeadIsReadOrRefused) {
    std::string damaged = bytes.substr(lots_position - 1, 14 + 516);
    for (std::size_t at = 0; at < damaged.size(); at += case_stride) {
        const char right = damaged[at];
        for (const int byte : damaging_bytes) {
            damaged[at] = static_cast<char>(byte);
            // Long enough for the highest count, so that the counts alone decide.
            VirtualFile file(damaged, 14 + i64{10002} * 516);
            const int fault = fault_of([&] { project_file::read_lot_block(file, 1); });
            ASSERT_TRUE(fault == 0 || fault == 63) << at << ": fault " << fault;
            if (lot_table_top > 3) lots.clear();
        }
        damaged[at] = right;
    }
}

TEST_F(ProjectFileTruncation, EveryDamagedPositionOpensOrTells) {
    std::vector<std::size_t> places;
    for (std::size_t at = 1; at <= 57; at += case_stride) places.push_back(at);
    for (const std::size_t slot : {setup + 410, setup + 416, setup + 422, setup + 428}) {
        for (std::size_t byte = 0; byte < 4; ++byte) places.push_back(slot + byte);
    }
    std::string damaged = bytes;
    for (const std::size_t place : places) {
        for (const int byte : damaging_bytes) {
            SCOPED_TRACE(std::to_string(place) + " to " + std::to_string(byte));
            damaged[place - 1] = static_cast<char>(byte);
            expect_opens_or_tells(damaged);
        }
        damaged[place - 1] = bytes[place - 1];
    }
}

TEST_F(ProjectFileTruncation, EveryCountAtItsExtremesOpensOrTells) {
    for (const std::size_t slot : {1U, 7U, 13U, 19U, 25U, 31U, 37U, 47U}) {
        for (const int value : {-32768, -1, 0, 1, 2, 32767}) {
            SCOPED_TRACE(std::to_string(slot) + ": " + std::to_string(value));
            expect_opens_or_tells(Image(bytes).word(slot, value).bytes);
        }
    }
}

TEST_F(ProjectFileTruncation, EveryPositionAtItsExtremesOpensOrTells) {
    std::vector<std::size_t> slots = {3,
                                      9,
                                      15,
                                      21,
                                      27,
                                      33,
                                      39,
                                      43,
                                      50,
                                      54,
                                      52,
                                      58,
                                      setup + 410,
                                      setup + 416,
                                      setup + 422,
                                      setup + 428,
                                      lots_position + 6,
                                      lots_position + 10};
    const auto length = static_cast<std::int64_t>(bytes.size());
    for (const std::size_t slot : slots) {
        for (const std::int64_t value :
             {std::int64_t{-2147483648}, std::int64_t{-1}, std::int64_t{0}, std::int64_t{1},
              std::int64_t{100}, length - 1, length, length + 1, std::int64_t{2147483647}}) {
            SCOPED_TRACE(std::to_string(slot) + ": " + std::to_string(value));
            expect_opens_or_tells(Image(bytes).position_word(slot, value).bytes);
        }
    }
}

TEST_F(ProjectFileTruncation, StringsLongerThanTheRestOfTheFileAreBadRecords) {
    for (const std::size_t start : {documents, measures, blocks[1]}) {
        std::string damaged = bytes;
        std::fill(damaged.begin() + static_cast<std::ptrdiff_t>(start) - 1, damaged.end(), '\xFF');
        expect_bad_record(damaged);
    }
}

}  // namespace

}  // namespace tavernook
