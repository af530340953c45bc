#include <array>
#include <optional>
#include <utility>

#include "barcodes/scan_index.h"
#include "barcodes/scan_rows.h"
#include "barcodes/scan_sources.h"
#include "basics/code_page.h"
#include "basics/text.h"
#include "basics/typed_numbers.h"
#include "basics/utf8_mark.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// A code has 32 letters and a lot 8. The limit keeps a full list of the longest lines at 32 MB.
constexpr std::size_t longest_line = 1000;

// The lines of a file, forward and in blocks. A line ends with CR, LF or both.
class Lines {
  public:
    explicit Lines(File& file) : file_(file) {
        fill();
        if (!block().starts_with(utf8_mark)) return;
        is_utf8_ = true;
        next_ = utf8_mark.size();
    }

    // As text; nothing behind the last one. Of what is longer than the longest line comes its
    // beginning, one byte longer than that.
    std::optional<std::string> next() {
        std::optional<std::string> line;
        while (const std::optional<char> byte = take()) {
            const bool ends_the_last = std::exchange(after_return_, *byte == '\r') && *byte == '\n';
            if (ends_the_last) continue;
            if (!line) line.emplace();
            if (*byte == '\r' || *byte == '\n' || line->size() > longest_line) break;
            *line += *byte;
        }
        const bool is_whole = line && line->size() <= longest_line;
        return is_whole && is_utf8_ ? text_from_utf8(*line) : line;
    }

    bool rest_is_blank() {
        while (const std::optional<char> byte = take()) {
            if (*byte != ' ' && *byte != '\r' && *byte != '\n') return false;
        }
        return true;
    }

  private:
    std::string_view block() const { return {block_.data(), filled_}; }

    void fill() {
        filled_ = file_.read(offset_, block_.data(), block_.size());
        offset_ += static_cast<i64>(filled_);
        next_ = 0;
    }

    std::optional<char> take() {
        if (next_ == filled_) fill();
        return filled_ != 0 ? std::optional<char>(block_[next_++]) : std::nullopt;
    }

    File& file_;
    std::array<char, std::size_t{64} * 1024> block_{};
    std::size_t filled_ = 0;
    std::size_t next_ = 0;
    i64 offset_ = 0;
    bool is_utf8_ = false;
    bool after_return_ = false;
};

struct ListLine {
    std::string_view barcode;
    f64 quantity = 0;
    std::string_view lot;
};

// Nothing where the line is none.
std::optional<ListLine> parts_of(std::string_view line) {
    if (line.size() > longest_line) return {};
    const std::size_t first = line.find(',');
    const std::size_t second = line.find(',', first + 1);
    if (first == 0 || first == std::string_view::npos || second == std::string_view::npos)
        return {};
    const auto quantity = typed_number(line.substr(first + 1, second - first - 1));
    if (!quantity) return {};
    return ListLine{line.substr(0, first), *quantity, trim(line.substr(second + 1))};
}

void take_lines(Lines& lines, ScanImport& import) {
    const ScanIndex index;
    for (import.stopped_at_line = 1;; ++import.stopped_at_line) {
        const std::optional<std::string> line = lines.next();
        const bool is_end = !line || (trim(*line).empty() && lines.rest_is_blank());
        if (is_end) break;
        const std::optional<ListLine> parts = parts_of(*line);
        if (!parts) return;
        const i16 item = index.item_of(trim_right(parts->barcode));
        append_scan_row(parts->barcode, parts->quantity, parts->lot, item);
        ++import.rows;
    }
    import.stopped_at_line = 0;
}

}  // namespace

ScanImport Import_File() noexcept {
    ScanImport import;
    tried([&import] {
        const std::string path = file_dialogs().open_file(
            {"Import Barcode List", "All Files (*.*)|*.*", in_program_folder("*.*")});
        if (project_open == i16_false) return;  // closed while the dialog stood open
        const auto file = files().open(path, OpenMode::read);
        import.has_begun = true;
        Lines lines(*file);
        take_lines(lines, import);
    });
    return import;
}

}  // namespace tavernook
