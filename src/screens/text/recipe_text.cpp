#include "screens/text/recipe_text.h"

#include <QAbstractTextDocumentLayout>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "rich_text/rtf_pictures.h"
#include "rich_text/rtf_reader.h"
#include "screens/parts/guard.h"
#include "screens/text/fitting_pictures.h"
#include "screens/text/text_exchange.h"

namespace tavernook {

namespace {

constexpr int smallest_zoom = 50;
constexpr int largest_zoom = 400;
constexpr int zoom_step = 10;
constexpr double largest_side = 1900;
constexpr double metres_in_inch = 0.0254;

QFont first_font() {
    return {QStringLiteral("Arial"), 10};
}

QColor mixed(const QColor& one, const QColor& other) {
    return QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
                  (one.blue() + other.blue()) / 2);
}

// A recipe's own colours are meant for light paper, so that a dark palette's pair changes places.
QPalette paper(const QPalette& around) {
    QPalette result;
    QColor base = around.color(QPalette::Active, QPalette::Base);
    QColor ink = around.color(QPalette::Active, QPalette::Text);
    if (base.lightness() < ink.lightness()) std::swap(base, ink);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        result.setColor(group, QPalette::Base, base);
        result.setColor(group, QPalette::Text, ink);
        result.setColor(group, QPalette::PlaceholderText, mixed(ink, mixed(ink, base)));
    }
    // Without a recipe there is no paper.
    const auto none = QPalette::Disabled;
    result.setColor(none, QPalette::Base, around.color(QPalette::Active, QPalette::Window));
    result.setColor(none, QPalette::Text, around.color(none, QPalette::WindowText));
    const QColor hint = around.color(QPalette::Active, QPalette::WindowText);
    result.setColor(none, QPalette::PlaceholderText, hint);
    return result;
}

// Beyond this a rich text could not tell the picture's size any more.
QSizeF shown_size(const QSize& dots) {
    const QSizeF size(dots);
    const double longest = std::max(size.width(), size.height());
    return longest <= largest_side ? size : size * (largest_side / longest);
}

}  // namespace

RecipeText::RecipeText(QWidget* parent)
    : QTextEdit(parent),
      pictures_(new FittingPictures(this)),
      zoomed_device_(1, 1, QImage::Format_RGB32) {
    setAcceptRichText(true);
    setTabChangesFocus(true);
    setFont(first_font());
    keep_font();
    viewport()->setMouseTracking(true);
    document()->documentLayout()->registerHandler(QTextFormat::ImageObject, pictures_);
}

void RecipeText::replace_with(const rtf::Content& content) {
    rtf::fill(*document(), content);
    moveCursor(QTextCursor::Start);
    document()->setModified(false);
}

void RecipeText::empty() {
    document()->clear();
    moveCursor(QTextCursor::Start);
    setCurrentCharFormat(QTextCharFormat());
    document()->clearUndoRedoStacks();
    document()->setModified(false);
}

QString RecipeText::add_picture(const QImage& picture) {
    const QString name = QStringLiteral("recipe-picture:%1").arg(++pictures_added_);
    document()->addResource(QTextDocument::ImageResource, QUrl(name), picture);
    return name;
}

// A document with more would lose its last pictures when it is read again.
bool RecipeText::has_room_for(long long dots) const {
    for_each_picture(*document(), [&](const QTextCursor&, const QTextImageFormat& format) {
        const QVariant picture =
            document()->resource(QTextDocument::ImageResource, QUrl(format.name()));
        dots += dots_of(picture.value<QImage>());
    });
    return dots <= rtf::most_picture_pixels;
}

bool RecipeText::insert_picture(const QImage& picture) {
    const long long dots = dots_of(picture);
    if (dots == 0 || dots > rtf::largest_picture || !has_room_for(dots)) return false;
    QTextImageFormat format;
    format.setName(add_picture(picture));
    const QSizeF size = shown_size(picture.size());
    format.setWidth(size.width());
    format.setHeight(size.height());
    const QTextCharFormat letters = currentCharFormat();
    textCursor().insertImage(format);
    if (!letters.isImageFormat()) setCurrentCharFormat(letters);
    ensureCursorVisible();
    return true;
}

// What the layout takes for the resolution of the screen; points and lengths grow with it.
void RecipeText::set_zoom(int percent) {
    percent = std::clamp(percent, smallest_zoom, largest_zoom);
    if (percent == zoom_) return;
    zoom_ = percent;
    const double dots_in_inch = logicalDpiY() * percent / 100.0;
    const auto dots_in_metre = static_cast<int>(std::lround(dots_in_inch / metres_in_inch));
    zoomed_device_.setDotsPerMeterX(dots_in_metre);
    zoomed_device_.setDotsPerMeterY(dots_in_metre);
    QPaintDevice* device = viewport();
    if (percent != 100) device = &zoomed_device_;
    document()->documentLayout()->setPaintDevice(device);
    pictures_->set_scale(percent / 100.0);
    document()->markContentsDirty(0, document()->characterCount());
    viewport()->update();
    ensureCursorVisible();
}

void RecipeText::keep_font() {
    if (document()->defaultFont() != first_font()) document()->setDefaultFont(first_font());
}

void RecipeText::take_paper(const QPalette& around) {
    setPalette(paper(around));
}

void RecipeText::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    // The document's font is the recipe's and not the screen's.
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange) {
        keep_font();
    }
}

RecipeText::Key RecipeText::key_of(const QKeyEvent& event) {
    const auto keys = event.keyCombination();
    const auto shifted = Qt::ControlModifier | Qt::ShiftModifier;
    if (event.matches(QKeySequence::ZoomIn) || keys == (Qt::ControlModifier | Qt::Key_Equal) ||
        keys == (shifted | Qt::Key_Plus)) {
        return Key::zoom_in;
    }
    if (event.matches(QKeySequence::ZoomOut)) return Key::zoom_out;
    if (keys == (Qt::ControlModifier | Qt::Key_0)) return Key::true_size;
    if (keys == (Qt::ControlModifier | Qt::Key_Y)) return Key::redo;
    return Key::none;
}

void RecipeText::run(Key key) {
    switch (key) {
        case Key::zoom_in:
            return set_zoom(zoom_ + zoom_step);
        case Key::zoom_out:
            return set_zoom(zoom_ - zoom_step);
        case Key::true_size:
            return set_zoom(100);
        case Key::redo:
            if (!isReadOnly()) redo();
            return;
        case Key::none:
            return;
    }
}

// Taken here before a window's command of the same keys can have them.
bool RecipeText::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        key_of(static_cast<QKeyEvent&>(*event)) != Key::none) {
        event->accept();
        return true;
    }
    return QTextEdit::event(event);
}

void RecipeText::keyPressEvent(QKeyEvent* event) {
    const Key key = key_of(*event);
    if (key == Key::none) return QTextEdit::keyPressEvent(event);
    run(key);
    event->accept();
}

void RecipeText::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QTextEdit::wheelEvent(event);
    const int turned = event->angleDelta().y();
    if (turned != 0) run(turned > 0 ? Key::zoom_in : Key::zoom_out);
    event->accept();
}

void RecipeText::mouseMoveEvent(QMouseEvent* event) {
    QTextEdit::mouseMoveEvent(event);
    Q_EMIT pointer_moved();
}

// --- clipboard and drops ---------------------------------------------------------------------

void RecipeText::dragEnterEvent(QDragEnterEvent* event) {
    if (is_no_text(*event->mimeData())) return event->ignore();
    QTextEdit::dragEnterEvent(event);
}

void RecipeText::dragMoveEvent(QDragMoveEvent* event) {
    if (is_no_text(*event->mimeData())) return event->ignore();
    QTextEdit::dragMoveEvent(event);
}

void RecipeText::dropEvent(QDropEvent* event) {
    if (is_no_text(*event->mimeData())) return event->ignore();
    QTextEdit::dropEvent(event);
}

bool RecipeText::canInsertFromMimeData(const QMimeData* source) const {
    if (source->hasImage()) return true;
    return !is_of_files(*source) &&
           (!rich_text_in(*source).isEmpty() || QTextEdit::canInsertFromMimeData(source));
}

void RecipeText::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !canInsertFromMimeData(source)) return;
    guarded([&] { insert_data(*source); });
}

void RecipeText::insert_data(const QMimeData& data) {
    if (insert_rich_text(rich_text_in(data).toStdString())) return;
    if (data.hasImage()) {
        if (!insert_picture(qvariant_cast<QImage>(data.imageData()))) Q_EMIT picture_refused();
        return;
    }
    const QFont font = document()->defaultFont();
    if (data.hasHtml() && insert_rich_text(rich_text_of_page(data.html(), font))) return;
    if (data.hasText()) textCursor().insertText(data.text());
    ensureCursorVisible();
}

// False, and nothing is changed, when there is nothing to see in it.
bool RecipeText::insert_rich_text(std::string_view bytes) {
    const std::optional<rtf::Content> content = content_in(bytes);
    if (content) insert_content(*content);
    return content.has_value();
}

void RecipeText::insert_content(const rtf::Content& content) {
    long long dots = 0;
    for (const rtf::Picture& picture : content.pictures) dots += dots_of(picture.image);
    if (dots > 0 && !has_room_for(dots)) return Q_EMIT picture_refused();
    QTextDocument piece;
    piece.setDefaultFont(document()->defaultFont());
    rtf::fill(piece, content);
    for_each_picture(piece, [&](QTextCursor place, QTextImageFormat format) {
        const QVariant picture = piece.resource(QTextDocument::ImageResource, format.name());
        format.setName(add_picture(picture.value<QImage>()));
        place.setCharFormat(format);
    });
    insert_document(textCursor(), piece);
    ensureCursorVisible();
}

QMimeData* RecipeText::createMimeDataFromSelection() const {
    QMimeData* data = nullptr;
    guarded([&] { data = selection_data(*document(), textCursor()); });
    return data != nullptr ? data : new QMimeData;
}

}  // namespace tavernook
