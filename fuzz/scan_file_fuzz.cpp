// A list of codes from any bytes: the rows, and the line that ends them, are those that the rules
// give, written out over the whole text at once.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "barcodes/scan_list.h"
#include "barcodes/scan_sources.h"
#include "basics/code_page.h"
#include "basics/fault.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "kept_files.h"
#include "platform/platform.h"

namespace tavernook {
namespace {

const std::string path = "/home/me/codes.txt";

class ThatFile : public FileDialogs {
  public:
    std::string open_file(const FileDialogRequest&) override { return path; }
    std::string save_file(const FileDialogRequest&) override { std::abort(); }
};

class FixedInfo : public SystemInfo {
  public:
    std::string program_folder() override { return "/program"; }
    std::string settings_folder() override { return "/settings"; }
    std::string short_date_format() override { return "M/d/yyyy"; }
};

KeptFiles kept_files;
CountedBoxes counted_boxes;
ThatFile that_file;
FixedInfo fixed_info;

void require(bool holds) {
    if (!holds) std::abort();
}

void start() {
    set_platform({.boxes = &counted_boxes,
                  .file_dialogs = &that_file,
                  .files = &kept_files,
                  .system_info = &fixed_info});
    reset_project_tables();
    project_open = i16_true;
    items[3].in_use = 1;
    items[3].name = "Milk";
    items[3].barcode = "0123";
}

std::vector<std::string> lines_of(const std::string& bytes) {
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const bool is_pair = bytes.compare(at, 2, "\r\n") == 0;
        if (bytes[at] != '\r' && bytes[at] != '\n') {
            line += bytes[at];
            continue;
        }
        lines.push_back(line);
        line.clear();
        if (is_pair) ++at;
    }
    if (!line.empty()) lines.push_back(line);
    return lines;
}

std::optional<f64> number(const std::string& text) {
    try {
        return whole_number_text(text);
    } catch (const Fault&) {
        return {};
    }
}

std::optional<ScanRow> row_of(const std::string& line) {
    const std::size_t first = line.find(',');
    if (first == std::string::npos || first < 1) return {};
    const std::size_t second = line.find(',', first + 1);
    if (second == std::string::npos) return {};
    const auto quantity = number(line.substr(first + 1, second - first - 1));
    if (!quantity) return {};
    ScanRow row;
    row.barcode = trim_right(line.substr(0, first));
    row.quantity = *quantity == 0 ? "1" : number_text(*quantity);
    row.lot = trim(line.substr(second + 1));
    if (row.lot.empty()) row.lot = "Auto";
    return row;
}

struct Expected {
    std::vector<ScanRow> rows;
    int stopped_at = 0;
};

Expected by_the_rules(std::string bytes) {
    const bool is_utf8 = bytes.starts_with("\xEF\xBB\xBF");
    if (is_utf8) bytes.erase(0, 3);
    std::vector<std::string> lines = lines_of(bytes);
    while (!lines.empty() && trim(lines.back()).empty()) lines.pop_back();
    Expected expected;
    for (const std::string& line : lines) {
        ++expected.stopped_at;
        if (line.size() > 1000) return expected;
        const auto row = row_of(is_utf8 ? text_from_utf8(line) : line);
        if (!row || expected.rows.size() == most_scan_rows) return expected;
        expected.rows.push_back(*row);
    }
    expected.stopped_at = 0;
    return expected;
}

void import(const std::string& bytes) {
    kept_files.kept = {{path, bytes}};
    clear_scan_list();
    const ScanImport result = Import_File();
    const Expected expected = by_the_rules(bytes);
    require(result.has_begun && result.stopped_at_line == expected.stopped_at);
    require(scan_rows.size() == expected.rows.size());
    require(result.rows == static_cast<int>(scan_rows.size()));
    for (std::size_t at = 0; at < scan_rows.size(); ++at) {
        const ScanRow& row = scan_rows[at];
        const ScanRow& wanted = expected.rows[at];
        require(row.barcode == wanted.barcode && row.lot == wanted.lot);
        require(row.quantity == wanted.quantity && number(row.quantity));
        require(row.is_known || trim(row.barcode) != "0123");
        require(!row.is_known || trim(row.barcode) == "0123" || row.barcode.substr(1, 2) == "VK" ||
                row.barcode.substr(1, 2) == "vk");
        require(row.name == (row.is_known ? "Milk" : "unknown item"));
        require(scan_row(row.id) == &row);
    }
    require(counted_boxes.shown == 0);
    require(kept_files.kept.size() == 1 && kept_files.kept.at(path) == bytes);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    tavernook::start();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::import(std::string(data, data + size));
    return 0;
}
