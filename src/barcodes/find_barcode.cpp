#include "barcodes/find_barcode.h"

#include "core/project_data.h"

namespace tavernook {

i16 find_barcode(std::string_view barcode) {
    for (i16 item = 1; item <= item_capacity; ++item) {
        auto& borne = items[item].barcode;
        borne = borne.trimmed();
        if (borne.trimmed() == barcode) return item;
    }
    return 0;
}

i16 find_scanned_item(std::string_view barcode) {
    if (barcode.empty() || barcode == no_barcode) return 0;
    const i16 item = find_barcode(barcode);
    return item != 0 && items[item].in_use == 1 ? item : i16{0};
}

}  // namespace tavernook
