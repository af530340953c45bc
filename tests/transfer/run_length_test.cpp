// The coding of back-ups. Back-ups are written out here by hand: what stands in front, the runs as
// {block, start, length, byte}, and their count come from the rules, not from the coder.
#include "transfer/run_length.h"

#include <gtest/gtest.h>
#include <numeric>
#include <random>

#include "basics/fault.h"
#include "support/plain_run_coder.h"
#include "transfer/memory_file.h"

namespace tavernook {
namespace {

constexpr std::size_t block = 32000;

struct HandRun {
    int block;
    int start;
    int length;
    char byte;
};

std::string by_hand(const std::string& literals, const std::vector<HandRun>& runs) {
    std::string bytes = literals;
    for (const HandRun& run : runs) {
        for (const int number :
             {run.block, run.start / 256, run.start % 256, run.length / 256, run.length % 256}) {
            bytes += static_cast<char>(number);
        }
        bytes += run.byte;
    }
    bytes += static_cast<char>(runs.size() / 256);
    bytes += static_cast<char>(runs.size() % 256);
    return bytes;
}

std::string of(std::size_t count, char byte) {
    return std::string(count, byte);
}

void expect_both_ways(const std::string& input, const std::string& backup) {
    EXPECT_EQ(encoded(input).bytes, backup);
    EXPECT_EQ(decoded(backup).bytes, input);
    EXPECT_EQ(decoded(backup).fault, 0);
}

// Coded as told, and restored as something else.
void expect_lost(const std::string& input, const std::string& backup, const std::string& restored) {
    EXPECT_NE(input, restored);
    EXPECT_EQ(encoded(input).bytes, backup);
    EXPECT_EQ(decoded(backup).bytes, restored);
    EXPECT_EQ(decoded(backup).fault, 0);
}

TEST(RunLength, TheBytesOfABackupByTheirPlaces) {
    const std::string backup = encoded("xy" + of(300, 'A') + "z" + of(8, '\0')).bytes;
    ASSERT_EQ(backup.size(), 17u);
    const auto byte = [&](int position) {
        return static_cast<unsigned char>(backup.at(static_cast<std::size_t>(position - 1)));
    };
    EXPECT_EQ(backup.substr(0, 3), "xyz");
    EXPECT_EQ(byte(4), 1);   // block
    EXPECT_EQ(byte(5), 0);   // start, high
    EXPECT_EQ(byte(6), 3);   // start, low
    EXPECT_EQ(byte(7), 1);   // length, high: 256
    EXPECT_EQ(byte(8), 44);  // length, low
    EXPECT_EQ(byte(9), 'A');
    EXPECT_EQ(byte(10), 1);
    EXPECT_EQ(byte(11), 1);  // 304 = 256 + 48
    EXPECT_EQ(byte(12), 48);
    EXPECT_EQ(byte(13), 0);
    EXPECT_EQ(byte(14), 8);
    EXPECT_EQ(byte(15), 0);
    EXPECT_EQ(byte(16), 0);  // two runs, high byte first
    EXPECT_EQ(byte(17), 2);
}

TEST(RunLength, SixStayLiteralAndSevenAreARun) {
    expect_both_ways(of(6, 'A') + of(7, 'B'), by_hand("AAAAAA", {{1, 7, 7, 'B'}}));
    expect_both_ways(of(7, 'A') + of(7, 'B'), by_hand("", {{1, 1, 7, 'A'}, {1, 8, 7, 'B'}}));
}

TEST(RunLength, ShortRunsAndSingleBytesKeepTheirOrder) {
    expect_both_ways("abbcccddddd" + of(9, 'e'), by_hand("abbcccddddd", {{1, 12, 9, 'e'}}));
    expect_both_ways("a" + of(7, 'x') + "bb" + of(7, 'y') + "c" + of(7, 'z'),
                     by_hand("abbc", {{1, 2, 7, 'x'}, {1, 11, 7, 'y'}, {1, 19, 7, 'z'}}));
}

TEST(RunLength, AnEmptyFileIsACountOfNone) {
    expect_both_ways("", by_hand("", {}));
}

TEST(RunLength, BlanksInsideABlockAreLikeAnyByte) {
    expect_both_ways("a" + of(6, ' ') + "b" + of(7, ' ') + "c" + of(7, 'x'),
                     by_hand("a" + of(6, ' ') + "bc", {{1, 9, 7, ' '}, {1, 17, 7, 'x'}}));
}

TEST(RunLength, ARunEndsWithItsBlock) {
    expect_both_ways(of(block + 10, 'A'), by_hand("", {{1, 1, 32000, 'A'}, {2, 1, 10, 'A'}}));
    expect_both_ways("a" + of(block + 5, 'Z') + of(7, 'B'),
                     by_hand("aZZZZZZ", {{1, 2, 31999, 'Z'}, {2, 7, 7, 'B'}}));
}

TEST(RunLength, ShortEndsOfABlockAreWrittenOnce) {
    const std::string first = of(block - 4, 'A') + "bccc";
    expect_both_ways(first + "cd" + of(7, 'E'),
                     by_hand("bccccd", {{1, 1, 31996, 'A'}, {2, 3, 7, 'E'}}));
}

// The end of the block counts as one blank, which stands for the next block's first.
TEST(RunLength, BlanksGoOnOverTheEndOfABlock) {
    expect_both_ways(of(block - 3, 'A') + of(10, ' ') + of(7, 'B'),
                     by_hand("", {{1, 1, 31997, 'A'}, {1, 31998, 10, ' '}, {2, 8, 7, 'B'}}));
    // A single one in front of it, and a single one behind it.
    expect_both_ways(of(block - 1, 'A') + "  " + of(7, 'B'),
                     by_hand("  ", {{1, 1, 31999, 'A'}, {2, 2, 7, 'B'}}));
    expect_both_ways(of(block - 1, 'A') + of(7, ' ') + of(7, 'B'),
                     by_hand("", {{1, 1, 31999, 'A'}, {1, 32000, 7, ' '}, {2, 7, 7, 'B'}}));
}

TEST(RunLength, BlanksGoOnOverWholeBlocks) {
    expect_both_ways(of(block - 2, 'A') + of(block + 8, ' ') + of(7, 'B'),
                     by_hand("", {{1, 1, 31998, 'A'}, {1, 31999, 32008, ' '}, {3, 7, 7, 'B'}}));
}

TEST(RunLength, BehindABlockThatEndsInABlankAnotherByteIsRestoredAsABlank) {
    expect_lost(of(block - 3, 'A') + "   xyz" + of(7, 'B'),
                by_hand("    yz", {{1, 1, 31997, 'A'}, {2, 4, 7, 'B'}}),
                of(block - 3, 'A') + "    yz" + of(7, 'B'));
    expect_lost(of(block - 6, 'A') + of(6, ' ') + "xyz" + of(7, 'B'),
                by_hand("yz", {{1, 1, 31994, 'A'}, {1, 31995, 7, ' '}, {2, 4, 7, 'B'}}),
                of(block - 6, 'A') + of(7, ' ') + "yz" + of(7, 'B'));
}

TEST(RunLength, BehindABlockThatEndsInABlankARunIsTakenForBlanks) {
    expect_lost(of(block - 1, 'A') + " " + of(20, 'x') + "y" + of(7, 'B'),
                by_hand("y", {{1, 1, 31999, 'A'}, {1, 32000, 21, ' '}, {2, 22, 7, 'B'}}),
                of(block - 1, 'A') + of(21, ' ') + "y" + of(7, 'B'));
}

TEST(RunLength, BlanksAtTheEndOfTheFileAreLost) {
    expect_lost(of(9, 'A') + of(40, ' '), by_hand("", {{1, 1, 9, 'A'}}), of(9, 'A'));
    expect_lost(of(9, 'A') + " ", by_hand("", {{1, 1, 9, 'A'}}), of(9, 'A'));
}

TEST(RunLength, TheLastOfWholeBlocksIsTakenAsEmpty) {
    expect_lost(of(2 * block, 'A'), by_hand("", {{1, 1, 32000, 'A'}}), of(block, 'A'));
    expect_lost(of(block, 'A'), by_hand("", {}), "");
    expect_lost(of(block - 1, 'A') + " " + of(block, ' '), by_hand("", {{1, 1, 31999, 'A'}}),
                of(block - 1, 'A'));
}

TEST(RunLength, BytesBehindTheLastRunAreWrittenAndNotRestored) {
    expect_lost(of(9, 'A') + "tail", by_hand("tail", {{1, 1, 9, 'A'}}), of(9, 'A'));
    expect_lost("no run at all", by_hand("no run at all", {}), "");
}

TEST(RunLength, BlocksAreCountedInAByte) {
    const std::string most = of(254 * block, '\0') + of(block - 1, '\1');
    const Coded backup = encoded(most);
    EXPECT_EQ(backup.fault, 0);
    EXPECT_EQ(backup.bytes.size(), 255u * 6 + 2);
    EXPECT_EQ(backup.bytes[254 * 6], '\xFF');
    EXPECT_TRUE(decoded(backup.bytes).bytes == most);
    EXPECT_EQ(encoded(of(255 * block, '\0')).fault, 0);
    EXPECT_EQ(encoded(of(255 * block + 1, '\0')).fault, fault_number::overflow);
    EXPECT_EQ(encoded(of(255 * block + 1, '\0')).bytes, "");
}

// Runs of eight, so that no block cuts one.
std::string with_runs(std::size_t count) {
    std::string bytes;
    for (std::size_t run = 0; run < count; ++run) bytes.append(8, run % 2 == 0 ? 'a' : 'b');
    return bytes;
}

TEST(RunLength, RunsAreCountedInTwoBytes) {
    const Coded backup = encoded(with_runs(65535));
    EXPECT_EQ(backup.fault, 0);
    EXPECT_EQ(backup.bytes.size(), 65535u * 6 + 2);
    EXPECT_EQ(backup.bytes.substr(65535 * 6), "\xFF\xFF");
    EXPECT_TRUE(decoded(backup.bytes).bytes == with_runs(65535));
    EXPECT_EQ(encoded(with_runs(65536)).fault, fault_number::overflow);
}

TEST(RunLength, ARunIsCountedInTwoBytes) {
    const std::string longest = "a" + of(65535, ' ') + of(7, 'b');
    expect_both_ways(longest, by_hand("a", {{1, 2, 65535, ' '}, {3, 1537, 7, 'b'}}));
    EXPECT_EQ(encoded("a" + of(65536, ' ') + of(7, 'b')).fault, fault_number::overflow);
}

TEST(RunLength, TheBarGoesUpTo99) {
    EXPECT_EQ(encoded(of(2 * block + 1, 'A')).progress, (std::vector<int>{33, 66, 99}));
    const std::string three = by_hand("", {{1, 1, 7, 'A'}, {1, 8, 7, 'B'}, {1, 15, 7, 'C'}});
    EXPECT_EQ(decoded(three).progress, (std::vector<int>{33, 66, 99}));
}

// Runs and single bytes of few kinds, blanks among them, with a border of a block somewhere.
std::string random_input(std::mt19937& random) {
    std::string bytes = of(random() % 3 * block, 'Q');
    bytes.resize(bytes.size() < 40 ? bytes.size() : bytes.size() - random() % 40);
    for (std::size_t parts = random() % 60; parts > 0; --parts) {
        bytes.append(random() % 4 == 0 ? random() % 12 : 1, " \0ab"[random() % 4]);
    }
    return bytes;
}

TEST(RunLength, IsTheCodingByteByByte) {
    std::mt19937 random(7);
    for (int turn = 0; turn < 3000; ++turn) {
        const std::string input = random_input(random);
        const std::string backup = encoded(input).bytes;
        ASSERT_EQ(backup, plainly_encoded(input)) << "turn " << turn;
        ASSERT_EQ(decoded(backup).bytes, plainly_decoded(backup)) << "turn " << turn;
    }
}

void expect_refused(const std::string& backup) {
    EXPECT_EQ(decoded(backup).fault, fault_number::bad_record_number);
}

TEST(RunLength, WhatNoCoderWritesIsRefused) {
    expect_refused("");
    expect_refused(of(1, '\0'));
    expect_refused("\xFF\xFF");                                     // the table is not there
    expect_refused(of(100, 'x') + "\xFF\xFF");                      // nor all of it
    expect_refused(by_hand("", {{0, 1, 7, 'A'}}));                  // blocks count from 1
    expect_refused(by_hand("", {{1, 0, 7, 'A'}}));                  // and places in them
    expect_refused(by_hand(of(40000, 'x'), {{1, 32001, 7, 'A'}}));  // a block is no longer
    expect_refused(by_hand("", {{1, 1, 6, 'A'}}));                  // no run
    expect_refused(by_hand("", {{1, 1, 0, 'A'}}));
    expect_refused(by_hand("xx", {{1, 4, 7, 'A'}}));  // three bytes in front of it
    expect_refused(by_hand("xx", {{255, 32000, 65535, 'A'}}));
    expect_refused(by_hand("xxx", {{1, 4, 7, 'A'}, {1, 10, 7, 'B'}}));        // one in the other
    expect_refused(by_hand(of(50, 'x'), {{1, 20, 7, 'A'}, {1, 1, 7, 'B'}}));  // not in order
    EXPECT_EQ(decoded(by_hand("xxx", {{1, 4, 7, 'A'}, {1, 11, 7, 'B'}})).fault, 0);
}

// The largest that a back-up can claim to be.
TEST(RunLength, NothingComesOutLongerThanAllBlocksAndARun) {
    const std::string literals = of(254 * block + 31999, 'x');
    const Coded most = decoded(by_hand(literals, {{255, 32000, 65535, 'A'}}));
    EXPECT_EQ(most.fault, 0);
    EXPECT_EQ(most.bytes.size(), 8'159'999u + 65'535u);
}

std::string some_backup() {
    return encoded("start" + of(40, 'A') + "between" + of(block, '\0') + "xx" + of(300, ' ') +
                   of(9, 'Z'))
        .bytes;
}

void expect_harmless(const std::string& backup) {
    const Coded result = decoded(backup);
    ASSERT_TRUE(result.fault == 0 || result.fault == fault_number::bad_record_number);
    ASSERT_LE(result.bytes.size(), 9'000'000u);
}

TEST(RunLength, CutAnywhereItIsHarmless) {
    const std::string whole = some_backup();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        expect_harmless(whole.substr(0, length));
    }
}

TEST(RunLength, WithAnyByteDamagedItIsHarmless) {
    const std::string whole = some_backup();
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string damaged = whole;
            damaged[place] = static_cast<char>(byte);
            expect_harmless(damaged);
        }
    }
}

}  // namespace
}  // namespace tavernook
