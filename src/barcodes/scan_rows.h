// What the sources and commands of the scan list share.
#pragma once

#include <string_view>
#include <utility>

#include "barcodes/scan_list.h"
#include "core/trap.h"

namespace tavernook {

// populate_item for a code that means this item; 0 for none.
void append_scan_row(std::string_view barcode, f64 quantity, std::string_view lot, i16 item);

// For the commands of the list: "ERROR 6 ERROR DESCRIPTIONOverflow".
template <typename Work>
bool trap_in_scan_list(Work&& work) {
    return trap(std::forward<Work>(work), [](const Fault& fault) {
        show_fault(scan_list_message(fault.number, fault.description));
    });
}

}  // namespace tavernook
