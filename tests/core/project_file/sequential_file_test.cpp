// Reading and writing forward in blocks, with the borders of the blocks in view.
#include "core/project_file/sequential_file.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "basics/fault_expectation.h"
#include "fakes/faulty_files.h"
#include "fakes/temp_folder.h"
#include "platform_disk/disk_files.h"

namespace tavernook {

namespace {

constexpr int damaged = fault_number::bad_record_number;
constexpr std::size_t block = SequentialReader::block_size;

// Bytes of which each tells its place.
std::string numbered_bytes(std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t at = 0; at < count; ++at) bytes[at] = static_cast<char>(at % 251);
    return bytes;
}

class SequentialFile : public testing::Test {
  protected:
    File& file_of(const std::string& bytes) {
        write_whole_file(path, bytes);
        file = files.open(path, OpenMode::read_write);
        files.start_over();
        return *file;
    }
    File& empty_file() { return file_of(""); }
    std::string on_disk() { return read_whole_file(path); }

    TempFolder folder;
    const std::string path = folder.path("data");
    DiskFiles disk;
    FaultyFiles files{disk};
    std::unique_ptr<File> file;
};

TEST_F(SequentialFile, ABlockHoldsTheLongestText) {
    EXPECT_GE(block, std::size_t{65535});
}

TEST_F(SequentialFile, ExactReadsNeedEveryByte) {
    File& data = file_of("abcdef");
    EXPECT_EQ(read_exactly(data, 1, 6), "abcdef");
    EXPECT_EQ(read_exactly(data, 6, 1), "f");
    EXPECT_EQ(read_exactly(data, 3, 0), "");
    EXPECT_EQ(fault_of([&] { read_exactly(data, 2, 6); }), damaged);
    EXPECT_EQ(fault_of([&] { read_exactly(data, 7, 1); }), damaged);
    EXPECT_EQ(fault_of([&] { read_exactly(data, 0, 1); }), damaged);
    EXPECT_EQ(fault_of([&] { read_exactly(data, -5, 1); }), damaged);
    EXPECT_EQ(fault_of([&] { read_exactly(data, 2147483647, 1); }), damaged);
}

TEST_F(SequentialFile, ReadingStartsInsideTheFileOnly) {
    File& data = file_of("abc");
    EXPECT_EQ(fault_of([&] { SequentialReader(data, 0); }), damaged);
    EXPECT_EQ(fault_of([&] { SequentialReader(data, -1); }), damaged);
    EXPECT_EQ(fault_of([&] { SequentialReader(data, 4); }), damaged);
    EXPECT_EQ(SequentialReader(data, 1).take(3), "abc");
    EXPECT_EQ(SequentialReader(data, 3).take(1), "c");
    File& nothing = empty_file();
    EXPECT_EQ(fault_of([&] { SequentialReader(nothing, 1); }), damaged);
}

TEST_F(SequentialFile, EachTakeGoesOnWhereTheLastOneEnded) {
    SequentialReader reader(file_of("abcdefgh"), 2);
    EXPECT_EQ(reader.take(2), "bc");
    EXPECT_EQ(reader.take(0), "");
    reader.skip(1);
    EXPECT_EQ(reader.take(4), "efgh");
    EXPECT_EQ(fault_of([&] { reader.take(1); }), damaged);
}

TEST_F(SequentialFile, NumbersAreLittleEndianAndSigned) {
    SequentialReader reader(
        file_of(std::string("\x02\x01\xFF\xFF\x04\x03\x02\x01\xFE\xFF\xFF\xFF", 12)), 1);
    EXPECT_EQ(reader.take_i16(), 258);
    EXPECT_EQ(reader.take_i16(), -1);
    EXPECT_EQ(reader.take_i32(), 16909060);
    EXPECT_EQ(reader.take_i32(), -2);
}

TEST_F(SequentialFile, AFileThatEndsInsideATakeIsDamaged) {
    SequentialReader reader(file_of("abc"), 1);
    EXPECT_EQ(fault_of([&] { reader.take(4); }), damaged);
    // What is there can still be taken.
    EXPECT_EQ(reader.take(3), "abc");
}

TEST_F(SequentialFile, TakesCrossTheBordersOfBlocks) {
    for (const std::size_t size : {block - 1, block, block + 1, 2 * block, 3 * block + 7}) {
        const std::string bytes = numbered_bytes(size);
        SequentialReader reader(file_of(bytes), 1);
        std::string all;
        // 1,000 bytes never divide a block evenly.
        for (std::size_t left = size; left > 0;) {
            const std::size_t part = std::min<std::size_t>(left, 1000);
            all += reader.take(part);
            left -= part;
        }
        EXPECT_TRUE(all == bytes) << size;
        EXPECT_EQ(fault_of([&] { reader.take(1); }), damaged) << size;
    }
}

TEST_F(SequentialFile, AWholeBlockCanBeTakenAtAnyPlace) {
    const std::string bytes = numbered_bytes(2 * block + 5);
    SequentialReader reader(file_of(bytes), 1);
    EXPECT_TRUE(reader.take(3) == bytes.substr(0, 3));
    EXPECT_TRUE(reader.take(block) == bytes.substr(3, block));
    EXPECT_TRUE(reader.take(block) == bytes.substr(3 + block, block));
    EXPECT_TRUE(reader.take(2) == bytes.substr(2 * block + 3));
}

TEST_F(SequentialFile, TheDiskSeesOneReadABlock) {
    SequentialReader reader(file_of(numbered_bytes(4 * block)), 1);
    for (std::size_t taken = 0; taken < 4 * block; taken += 16) reader.skip(16);
    std::vector<std::string> reads;
    for (const std::string& entry : files.log()) {
        if (entry.starts_with("read ")) reads.push_back(entry);
    }
    std::vector<std::string> expected;
    for (std::size_t n = 0; n < 4; ++n) {
        expected.push_back("read data " + std::to_string(n * block) + " " + std::to_string(block));
    }
    EXPECT_EQ(reads, expected);
}

TEST_F(SequentialFile, TextsCarryTheirLength) {
    const std::string longest(65535, 'x');
    SequentialReader reader(
        file_of(std::string("\x03\0abc\0\0\xFF\xFF", 9) + longest + std::string("\x02\0z", 3)), 1);
    std::string text = "from before";
    reader.take_variable(text);
    EXPECT_EQ(text, "abc");
    reader.take_variable(text);
    EXPECT_EQ(text, "");
    reader.take_variable(text);
    EXPECT_TRUE(text == longest);
    EXPECT_EQ(fault_of([&] { reader.take_variable(text); }), damaged);
}

TEST_F(SequentialFile, ATextMayLieAcrossTheBorderOfABlock) {
    for (const std::size_t in_front : {block - 3, block - 2, block - 1, block}) {
        const std::string text = numbered_bytes(60000);
        SequentialReader reader(
            file_of(std::string(in_front, '-') + std::string("\x60\xEA", 2) + text), 1);
        reader.skip(in_front);
        std::string taken;
        reader.take_variable(taken);
        EXPECT_TRUE(taken == text) << in_front;
    }
}

TEST_F(SequentialFile, AShortFileReadsAsZerosWhereThatIsAllowed) {
    SequentialReader reader(file_of("abcde"), 2);
    EXPECT_EQ(reader.take_or_zeros(2), "bc");
    EXPECT_EQ(reader.take_or_zeros(4), std::string("de\0\0", 4));
    EXPECT_EQ(reader.take_or_zeros(3), std::string("\0\0\0", 3));
    EXPECT_EQ(fault_of([&] { reader.take(1); }), damaged);
}

TEST_F(SequentialFile, ZerosBeginAtTheBorderOfABlockToo) {
    for (const std::size_t size : {block - 1, block, block + 1}) {
        const std::string bytes = numbered_bytes(size);
        SequentialReader reader(file_of(bytes), 1);
        std::string all;
        for (std::size_t taken = 0; taken < block + 64; taken += 8) all += reader.take_or_zeros(8);
        EXPECT_TRUE(all == bytes + std::string(block + 64 - size, '\0')) << size;
    }
}

TEST_F(SequentialFile, WritingStartsAtThePosition) {
    File& data = file_of("abcdef");
    SequentialWriter writer(data, 3);
    writer.bytes().write_bytes("XY");
    writer.record_done();
    EXPECT_EQ(on_disk(), "abcdef");  // not before it is finished
    writer.finish();
    EXPECT_EQ(on_disk(), "abXYef");
    writer.finish();
    EXPECT_EQ(on_disk(), "abXYef");
}

TEST_F(SequentialFile, WritingBeyondTheEndLeavesZeros) {
    File& data = file_of("ab");
    SequentialWriter writer(data, 5);
    writer.bytes().write_i16(258);
    writer.finish();
    EXPECT_EQ(on_disk(), std::string("ab\0\0\x02\x01", 6));
}

TEST_F(SequentialFile, LongWritesGoOutInBlocksAndStayInOrder) {
    File& data = empty_file();
    SequentialWriter writer(data, 1);
    const std::string record = numbered_bytes(1000);
    std::string expected;
    for (int n = 0; n < 600; ++n) {
        writer.bytes().write_bytes(record);
        writer.record_done();
        expected += record;
    }
    writer.finish();
    EXPECT_TRUE(on_disk() == expected);
    // Each write takes as many whole records as first fill a block; the last one takes the rest.
    const std::size_t part = (block + 999) / 1000 * 1000;
    std::vector<std::string> writes;
    for (std::size_t at = 0; at < 600000; at += part) {
        writes.push_back("write data " + std::to_string(at) + " " +
                         std::to_string(std::min<std::size_t>(part, 600000 - at)));
    }
    EXPECT_EQ(files.log(), writes);
}

TEST_F(SequentialFile, ABlockThatIsExactlyFullGoesOut) {
    File& data = empty_file();
    SequentialWriter writer(data, 1);
    writer.bytes().write_zeros(block - 1);
    writer.record_done();
    EXPECT_EQ(on_disk().size(), 0U);
    writer.bytes().write_zeros(1);
    writer.record_done();
    EXPECT_EQ(on_disk().size(), block);
}

TEST_F(SequentialFile, TextsAreWrittenUpToTheirGreatestLength) {
    File& data = empty_file();
    SequentialWriter writer(data, 1);
    writer.write_variable("abc");
    writer.write_variable("");
    writer.write_variable(std::string(65535, 'x'));
    EXPECT_EQ(fault_of([&] { writer.write_variable(std::string(65536, 'x')); }),
              fault_number::overflow);
    writer.finish();
    EXPECT_TRUE(on_disk() == std::string("\x03\0abc\0\0\xFF\xFF", 9) + std::string(65535, 'x'));
}

TEST_F(SequentialFile, AFailureOfTheDiskIsHandedOn) {
    File& data = file_of(numbered_bytes(block + 10));
    files.fail_at(2, fault_number::device_io_error);  // behind the look at the length
    SequentialReader reader(data, 1);
    EXPECT_EQ(fault_of([&] { reader.take(1); }), fault_number::device_io_error);
    files.start_over();
    files.fail_at(1, fault_number::disk_full);
    SequentialWriter writer(data, 1);
    writer.bytes().write_bytes("a");
    EXPECT_EQ(fault_of([&] { writer.finish(); }), fault_number::disk_full);
}

}  // namespace

}  // namespace tavernook
