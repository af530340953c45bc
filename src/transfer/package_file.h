// The bytes of a package, "home.vpk": a project file and the texts of its recipes, one behind the
// other (docs/formats/package_file.md). No question asked. Positions count from 1.
//
//   1          4   length of the project file, L
//   10         2   how many texts
//   100        L   the project file
//   L + 1          the first text: 99 bytes before the project's end, which it overwrites
//
// The text at P: length D (i32) at P, length N of its name (i16) at P + 10, the word 8 at P + 20, N
// again at P + 22, the name at P + 24, the bytes at P + 30 + N; the next text one byte further than
// their end. So a project that was packed with texts has bytes of the first of them in place of its
// last 99, among the servings of its recipes, and one without texts comes back whole.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basics/values.h"
#include "platform/files.h"

namespace tavernook {

// Called before each block of a long copying; what it throws ends the work.
using EachBlock = std::function<void()>;

// In blocks. Fault 63 when `from` ends before. Throws what the file layer throws.
void copy_bytes(File& from, i64 from_position, File& to, i64 to_position, i64 count,
                const EachBlock& each_block);

// Writes a package into an empty file, front to end. Throws what the file layer throws, and Fault 6
// for what is longer than 2 GB or a name beyond 16 bits.
class PackageWriter {
  public:
    explicit PackageWriter(File& package) : package_(package) {}

    // First of all.
    void put_project(File& project, const EachBlock& each_block);

    // Any number of times.
    void add_document(std::string_view name, File& document, const EachBlock& each_block);

    // Last of all: how many there are.
    void finish();

    int documents() const { return documents_; }

  private:
    File& package_;
    i64 position_ = 0;
    int documents_ = 0;
};

struct PackedDocument {
    std::string name;  // text; a bare file name
    i64 position = 0;  // of its bytes in the package
    i64 length = 0;
};

struct Package {
    i64 project_length = 0;
    std::vector<PackedDocument> documents;
};

inline constexpr i64 packed_project_position = 100;

// What is in a package, all of it walked and checked. Fault 63 for one that is damaged, whatever
// lengths and counts it claims, and for names that are no bare file name of a text. What stands in
// the skipped places, the word 8 and the second N are not looked at.
Package read_package(File& package);

}  // namespace tavernook
