#include "barcodes/scan_list.h"

namespace tavernook {

std::vector<ScanRow> scan_rows;

}  // namespace tavernook
