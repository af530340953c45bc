#include "barcodes/scanners.h"

#include "barcodes/cue_cat.h"
#include "basics/text.h"
#include "core/project_data.h"

namespace tavernook {

std::string code_in_line(std::string_view line) noexcept {
    const std::string typed(trim(line));
    return scanner_type == cue_cat ? std::string(trim(decode_cue_cat(typed))) : typed;
}

}  // namespace tavernook
