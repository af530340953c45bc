// The tables of the sample's sources: comma separated, UTF-8, the first line names the columns,
// texts with commas in double quotes. A field never goes over a line end.
#pragma once

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "basics/values.h"

namespace tavernook::make_sample {

// "items.csv:12: unknown category "Fruits"".
class SourceError : public std::runtime_error {
  public:
    SourceError(const std::string& place, const std::string& what);
};

// One line of a table. Texts come back trimmed, in the code page of the logic.
class Row {
  public:
    Row(std::string place, std::map<std::string, std::string> fields);

    const std::string& text(const std::string& column) const;

    // The whole text must be a number from `lowest` to `highest`.
    f64 number(const std::string& column, f64 lowest, f64 highest) const;
    int whole(const std::string& column, int lowest, int highest) const;

    // A text that must be there and fit into `size` characters.
    const std::string& name(const std::string& column, std::size_t size) const;

    [[noreturn]] void fail(const std::string& what) const;

  private:
    std::string place_;
    std::map<std::string, std::string> fields_;
};

std::vector<Row> read_table(const std::filesystem::path& file);

}  // namespace tavernook::make_sample
