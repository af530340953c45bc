#include "platform_services/cabinet_files.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "basics/byte_codec.h"
#include "basics/fault.h"
#include "fakes/temp_folder.h"
#include "platform_disk/disk_files.h"

namespace tavernook {
namespace {

constexpr i64 much = i64{256} * 1024 * 1024;
const std::string wanted = "temppf.tmp";

// Half of it text, half noise.
std::string content(std::size_t size) {
    std::mt19937 noise(static_cast<unsigned>(size));
    std::string bytes;
    while (bytes.size() < size) {
        bytes += "sugar, flour and ";
        for (int i = 0; i < 16; ++i) bytes += static_cast<char>(noise());
    }
    bytes.resize(size);
    return bytes;
}

// A cabinet of one folder without compression, built by its layout. The entry is what comes behind
// the first `offset` bytes.
std::string plain_cabinet(const std::string& name, const std::string& bytes, int offset = 0) {
    const auto size = static_cast<std::uint32_t>(bytes.size());
    const std::uint32_t files_at = 36 + 8;
    const auto data_at = static_cast<std::uint32_t>(files_at + 16 + name.size() + 1);
    ByteWriter out;
    const auto u32 = [&](std::uint32_t value) { out.write_i32(static_cast<i32>(value)); };
    const auto u16_of = [&](std::uint32_t value) {
        out.write_i16(static_cast<i16>(static_cast<std::uint16_t>(value)));
    };
    out.write_bytes("MSCF");
    u32(0), u32(data_at + 8 + size), u32(0), u32(files_at), u32(0);
    out.write_bytes(std::string_view("\x03\x01", 2));
    u16_of(1), u16_of(1), u16_of(0), u16_of(7), u16_of(0);  // folders, files, flags, set, number
    u32(data_at), u16_of(1), u16_of(0);                     // one block, stored
    const auto skipped = static_cast<std::uint32_t>(offset);
    u32(size - skipped), u32(skipped), u16_of(0), u16_of(0x5A21), u16_of(0x6000), u16_of(0x20);
    out.write_bytes(name + std::string(1, '\0'));
    u32(0), u16_of(size), u16_of(size);  // no checksum
    out.write_bytes(bytes);
    return std::string(out.bytes());
}

class CabinetFilesTest : public testing::Test {
  protected:
    std::string path(const std::string& name) { return folder.path(name); }

    // The percentages that were told.
    std::vector<int> pack(const std::string& bytes) {
        write_whole_file(path("source"), bytes);
        write_whole_file(path("packed.cab"), "");
        std::vector<int> told;
        cabinets.compress(*files.open(path("source"), OpenMode::read), wanted,
                          *files.open(path("packed.cab"), OpenMode::read_write),
                          [&](int percent) { told.push_back(percent); });
        return told;
    }
    std::unique_ptr<Extraction> begin(i64 longest = much, const std::string& entry = wanted) {
        write_whole_file(path("out"), "");
        return cabinets.extract(files.open(path("packed.cab"), OpenMode::read), entry,
                                files.open(path("out"), OpenMode::read_write), longest);
    }
    // The Fault's number, 0 for none.
    int unpack(i64 longest = much, const std::string& entry = wanted) {
        const auto extraction = begin(longest, entry);
        percents.clear();
        while (!extraction->has_ended()) {
            const int percent = extraction->percent();
            if (percents.empty() || percents.back() != percent) percents.push_back(percent);
        }
        try {
            extraction->finish();
        } catch (const Fault& fault) {
            EXPECT_LT(extraction->percent(), 100);
            return fault.number;
        }
        EXPECT_EQ(extraction->percent(), 100);
        return 0;
    }
    std::string unpacked() { return read_whole_file(path("out")); }
    void lies_there(const std::string& cabinet) { write_whole_file(path("packed.cab"), cabinet); }

    // What a program makes of the cabinet; nothing where it is not installed.
    bool has(const std::string& program) {
        return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
    }
    int run(const std::string& command) {
        return std::system(("cd " + folder.path() + " && " + command).c_str());
    }

    TempFolder folder;
    DiskFiles files;
    CabinetFiles cabinets;
    std::vector<int> percents;
};

const std::size_t sizes[] = {0, 1, 7, 32767, 32768, 32769, 65536, 10'000'000};

TEST_F(CabinetFilesTest, WhatIsPackedComesOutAgain) {
    for (const std::size_t size : sizes) {
        SCOPED_TRACE(size);
        const std::string bytes = content(size);
        pack(bytes);
        EXPECT_EQ(unpack(), 0);
        EXPECT_TRUE(unpacked() == bytes);
    }
}

TEST_F(CabinetFilesTest, OtherProgramsUnpackIt) {
    if (!has("cabextract")) GTEST_SKIP() << "without cabextract";
    for (const std::size_t size : sizes) {
        SCOPED_TRACE(size);
        const std::string bytes = content(size);
        pack(bytes);
        EXPECT_EQ(run("cabextract -q -t packed.cab > log"), 0);
        EXPECT_EQ(run("cabextract -q -p packed.cab > other"), 0);
        EXPECT_TRUE(read_whole_file(path("other")) == bytes);
        EXPECT_EQ(run("cabextract -l packed.cab | grep -q '| temppf.tmp$'"), 0);
    }
}

TEST_F(CabinetFilesTest, SevenZipUnpacksIt) {
    if (!has("7z")) GTEST_SKIP() << "without 7z";
    for (const std::size_t size : sizes) {
        SCOPED_TRACE(size);
        const std::string bytes = content(size);
        pack(bytes);
        EXPECT_EQ(run("7z t packed.cab > log"), 0);
        EXPECT_EQ(run("7z e -so packed.cab > other 2> log"), 0);
        EXPECT_TRUE(read_whole_file(path("other")) == bytes);
    }
}

TEST_F(CabinetFilesTest, TellsHowFarItIs) {
    const std::vector<int> told = pack(content(1'000'000));
    EXPECT_EQ(told.front(), 0);
    EXPECT_EQ(told.back(), 100);
    EXPECT_EQ(std::count(told.begin(), told.end(), 100), 1);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.size(), 2u + 31);  // a block is 32768 bytes
    EXPECT_EQ(told[15], 15 * 32768 / 10000);

    EXPECT_EQ(unpack(), 0);
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
}

TEST_F(CabinetFilesTest, PackingEndsWithWhatTheProgressThrows) {
    write_whole_file(path("source"), content(200'000));
    write_whole_file(path("packed.cab"), "");
    int fault = 0;
    try {
        cabinets.compress(*files.open(path("source"), OpenMode::read), wanted,
                          *files.open(path("packed.cab"), OpenMode::read_write), [](int percent) {
                              if (percent > 40) throw Fault(fault_number::cancel_was_selected);
                          });
    } catch (const Fault& thrown) {
        fault = thrown.number;
    }
    EXPECT_EQ(fault, fault_number::cancel_was_selected);
    EXPECT_EQ(unpack(), fault_number::bad_record_number);
}

TEST_F(CabinetFilesTest, ReadsWhatIsNotCompressed) {
    for (const std::size_t size : {0, 1, 30000}) {
        const std::string bytes = content(size);
        lies_there(plain_cabinet("temppf.tmp", bytes));
        EXPECT_EQ(unpack(), 0);
        EXPECT_TRUE(unpacked() == bytes);
    }
}

TEST_F(CabinetFilesTest, CapitalsOfTheNameDoNotCount) {
    lies_there(plain_cabinet("TempPF.TMP", "bread"));
    EXPECT_EQ(unpack(), 0);
    EXPECT_EQ(unpacked(), "bread");
}

TEST_F(CabinetFilesTest, OnlyTheEntryItselfIsTaken) {
    for (const char* name :
         {"..\\temppf.tmp", "/elsewhere/x", "\\temppf.tmp", "a\\temppf.tmp", "C:\\temppf.tmp",
          "../temppf.tmp", "temppf.tmp ", "temppf.tmpx", "other.txt", "temppf"}) {
        lies_there(plain_cabinet(name, "bread"));
        EXPECT_EQ(unpack(), fault_number::file_not_found) << name;
        EXPECT_EQ(unpacked(), "");
    }
    EXPECT_EQ(files.list(folder.path(), ""), (std::vector<std::string>{"out", "packed.cab"}));
}

TEST_F(CabinetFilesTest, NothingComesOverTheBound) {
    pack(std::string(1'000'000, 'A'));
    EXPECT_EQ(unpack(1'000'000), 0);
    EXPECT_EQ(unpack(999'999), fault_number::out_of_memory);
    EXPECT_LE(unpacked().size(), 999'999u);
}

TEST_F(CabinetFilesTest, WhatIsPassedOverCountsForTheBound) {
    lies_there(plain_cabinet("temppf.tmp", content(20000) + "bread", 20000));
    EXPECT_EQ(unpack(20005), 0);
    EXPECT_EQ(unpacked(), "bread");
    EXPECT_EQ(unpack(20004), fault_number::out_of_memory);
    EXPECT_EQ(unpacked(), "");
}

TEST_F(CabinetFilesTest, TheTargetIsHandedOutWhole) {
    lies_there(plain_cabinet("temppf.tmp", "bread"));
    const auto extraction = begin();
    while (!extraction->has_ended()) continue;
    const auto target = extraction->finish();
    ASSERT_TRUE(target);
    files.rename(path("out"), path("elsewhere"));
    EXPECT_EQ(target->length(), 5);
}

TEST_F(CabinetFilesTest, WhatIsNoCabinetIsRefused) {
    for (const std::string& bytes :
         {std::string(), std::string("MSCF"), content(5000), std::string(5000, '\0')}) {
        lies_there(bytes);
        EXPECT_EQ(unpack(), fault_number::bad_record_number);
    }
}

// What comes of a damaged one is never more than was allowed, and it always comes to an end.
TEST_F(CabinetFilesTest, DamagedOnesAreRefusedOrGiveBoundedBytes) {
    const std::string bytes = content(70'000);
    pack(bytes);
    const std::string whole = read_whole_file(path("packed.cab"));
    for (std::size_t length = 0; length < whole.size(); length += length < 100 ? 1 : 997) {
        lies_there(whole.substr(0, length));
        EXPECT_EQ(unpack(), fault_number::bad_record_number) << length;
    }
    std::mt19937 noise(1);
    for (int round = 0; round < 600; ++round) {
        std::string damaged = whole;
        const std::size_t range = round % 2 == 0 ? 90 : damaged.size();
        damaged[noise() % range] ^= static_cast<char>(1 << noise() % 8);
        lies_there(damaged);
        unpack(80'000);
        EXPECT_LE(unpacked().size(), 80'000u);
    }
}

// A file that counts, on a disk that may be full.
class CountingFile : public File {
  public:
    explicit CountingFile(std::atomic<int>& writes, int full_at = 1 << 30)
        : writes_(writes), full_at_(full_at) {}
    std::size_t read(i64, char*, std::size_t) override { return 0; }
    void write(i64, std::string_view) override {
        const int count = ++writes_;
        writes_.notify_one();
        if (count >= full_at_) throw Fault(fault_number::disk_full);
    }
    i64 length() override { return 0; }
    void flush() override {}

  private:
    std::atomic<int>& writes_;
    int full_at_;
};

TEST_F(CabinetFilesTest, LettingGoStopsIt) {
    pack(std::string(100'000'000, 'A'));
    std::atomic<int> writes = 0;
    auto extraction = cabinets.extract(files.open(path("packed.cab"), OpenMode::read), wanted,
                                       std::make_unique<CountingFile>(writes), much);
    writes.wait(0);
    extraction.reset();
    EXPECT_LT(writes, 100'000'000 / 32768);
}

TEST_F(CabinetFilesTest, WhatTheFilesThrowComesOut) {
    pack(content(200'000));
    std::atomic<int> writes = 0;
    const auto extraction = cabinets.extract(files.open(path("packed.cab"), OpenMode::read), wanted,
                                             std::make_unique<CountingFile>(writes, 3), much);
    try {
        extraction->finish();
        ADD_FAILURE();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, fault_number::disk_full);
    }
    EXPECT_EQ(writes, 3);
}

}  // namespace
}  // namespace tavernook
