#include "screens/parts/label_font.h"

#include <QFontDatabase>

#include "barcodes/barcode_sheet.h"
#include "screens/parts/screen.h"

namespace tavernook {

QString missing_label_font() {
    const QLatin1String font(label_font);
    if (QFontDatabase::hasFamily(font)) return {};
    return tr("The font \"%1\" is missing on this computer: the codes are plain text here, and "
              "labels printed without it cannot be scanned.  Install a font of that name, and "
              "start the program again.")
        .arg(font);
}

}  // namespace tavernook
