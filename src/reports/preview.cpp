#include "reports/preview.h"

namespace tavernook {

std::string html_path;
i16 preview_kind = 0;
std::string report_name;

}  // namespace tavernook
