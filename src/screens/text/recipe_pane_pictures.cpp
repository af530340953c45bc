// Pictures from files, and the recipe's barcode.
#include <QBuffer>
#include <QImageReader>
#include <optional>

#include "barcodes/code39.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "rich_text/rtf_pictures.h"
#include "screens/text/recipe_pane.h"

namespace tavernook {

namespace {

// Four bytes for each dot of the largest picture, and some for its head.
constexpr i64 largest_file = rtf::largest_picture * 4 + 4096;

// Nothing when the file is longer than any picture that a recipe keeps.
std::optional<QByteArray> picture_bytes(const std::string& path) {
    const auto file = files().open(path, OpenMode::read);
    const i64 length = file->length();
    if (length > largest_file) return {};
    QByteArray bytes(static_cast<qsizetype>(length), '\0');
    const auto count = static_cast<std::size_t>(length);
    bytes.truncate(static_cast<qsizetype>(file->read(0, bytes.data(), count)));
    return bytes;
}

// Looks at the size before any dot is drawn. Null when it is no picture.
QImage picture_in(QByteArray bytes, bool& too_large) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    too_large = static_cast<i64>(size.width()) * size.height() > rtf::largest_picture;
    return too_large ? QImage() : reader.read();
}

}  // namespace

void RecipePane::insert_picture_file(const std::string& path) {
    const std::optional<QByteArray> bytes = picture_bytes(path);
    bool too_large = !bytes;
    const QImage picture = bytes ? picture_in(*bytes, too_large) : QImage();
    if (too_large) {
        boxes().message("This picture is too large for a recipe. Please make it smaller first.");
    } else if (picture.isNull()) {
        boxes().message("This file holds no picture that can be shown.");
    } else if (!insert_picture(picture)) {
        boxes().message("The recipe has no room for a further picture of this size.");
    }
}

void RecipePane::tell_refused_picture() {
    boxes().message(
        "This picture is too large for a recipe, there is no room for it, or it cannot be shown.");
}

void RecipePane::InsertImage() {
    trap_in_screen([&] {
        insert_picture_file(
            file_dialogs().open_file({"Insert Picture", "Bitmap Files (*.bmp)|*.bmp", ""}));
    });
    setFocus();
}

void RecipePane::insert_barcode_of(i16 recipe) {
    const std::string path = save_barcode_picture(recipe, true);
    if (path.empty()) return;
    trap_in_screen([&] { insert_picture_file(path); });
}

}  // namespace tavernook
