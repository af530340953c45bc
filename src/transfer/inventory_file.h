// The plain file inside an inventory file ".ipf" (docs/formats/inventory_file.md): the number of
// items at position 1, and from position 100 on a block for each (transfer/item_block.h).
#pragma once

#include "transfer/item_block.h"

namespace tavernook {

// Writes behind each other. Throws what the file layer throws.
class InventoryFileWriter {
  public:
    // The file is empty.
    explicit InventoryFileWriter(File& file);

    void add(const ItemBlock& block);

    // The number of items; what has no number is no inventory file.
    void finish();

    i16 count() const { return count_; }

  private:
    File& file_;
    i64 position_;
    i16 count_ = 0;
};

// Reads forward. Fault 63 for a file that ends before what it claims to have, and for a number of
// items below 0.
class InventoryFileReader {
  public:
    explicit InventoryFileReader(File& file);

    i16 count() const { return count_; }

    // False behind the last.
    bool next(ItemBlock& block);

  private:
    File& file_;
    i64 position_;
    i16 count_;
    i16 read_ = 0;
};

}  // namespace tavernook
