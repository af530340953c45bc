// The window with an item's barcode, asked for from the list of items.
#pragma once

#include "basics/values.h"

namespace tavernook {

// Draws and saves the barcode and brings the window up. An item without one is told in the message
// panel; 0 is no item and nothing happens.
void show_barcode_of(i16 item);

}  // namespace tavernook
