// A copy of every table and setting, to compare what was saved with what was opened.
#pragma once

#include <memory>
#include <string>

namespace tavernook {

class TableSnapshot {
  public:
    // Of the tables as they are now.
    TableSnapshot();
    ~TableSnapshot();
    TableSnapshot(const TableSnapshot&) = delete;
    TableSnapshot& operator=(const TableSnapshot&) = delete;

    // Empty when equal; otherwise the first place that differs, as in "items[7]".
    std::string difference(const TableSnapshot& other) const;

  private:
    struct Copy;
    std::unique_ptr<Copy> copy_;
};

}  // namespace tavernook
