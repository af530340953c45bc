#include "screens/pantry/barcode_picture.h"

#include "barcodes/barcode_on_show.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/screen.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

void show_barcode_of(i16 item) {
    if (item == 0) return;
    if (!has_barcode(item)) {
        return say(
            tr("%1 has no barcode.  Scan or type one into its form first.").arg(item_name(item)));
    }
    if (put_barcode_on_show(item, false)) show_screen(QStringLiteral("BCGEN"));
}

}  // namespace tavernook
