#include "screens/text/recipe_text.h"

#include <QAbstractTextDocumentLayout>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "rich_text/rtf_bounds.h"
#include "rich_text/rtf_pictures.h"
#include "rich_text/rtf_reader.h"
#include "screens/parts/guard.h"
#include "screens/text/closed_document.h"
#include "screens/text/fitting_pictures.h"
#include "screens/text/text_arrival.h"
#include "screens/text/text_exchange.h"
#include "screens/text/text_paper.h"

namespace tavernook {

namespace {

constexpr int smallest_zoom = 50;
constexpr int largest_zoom = 400;
constexpr int zoom_step = 10;
constexpr double narrowest_picture_room = 160;
constexpr double metres_in_inch = 0.0254;
constexpr QKeyCombination larger_keys = Qt::AltModifier | Qt::Key_Up;
constexpr QKeyCombination smaller_keys = Qt::AltModifier | Qt::Key_Down;
constexpr QKeyCombination original_keys = Qt::AltModifier | Qt::Key_Home;

QFont first_font() {
    return {QStringLiteral("Arial"), 10};
}

}  // namespace

RecipeText::RecipeText(QWidget* parent)
    : QTextEdit(parent),
      pictures_(new FittingPictures(this)),
      zoomed_device_(1, 1, QImage::Format_RGB32) {
    setDocument(new ClosedDocument(this));
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

void RecipeText::replace_with(const QString& plain_words) {
    empty();
    document()->setPlainText(plain_words);
    moveCursor(QTextCursor::Start);
    document()->clearUndoRedoStacks();
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

// Two thirds of the width that the text has once there is a scroll bar.
double RecipeText::room_of_new_picture() const {
    const QScrollBar& bar = *verticalScrollBar();
    const int width = viewport()->width() - (bar.isVisible() ? 0 : bar.sizeHint().width());
    return std::max(width * 2 / 3.0 * 100 / zoom_, narrowest_picture_room);
}

bool RecipeText::insert_picture(const QImage& picture) {
    const QImage kept = rtf::kept_picture(picture);
    const long long dots = dots_of(kept);
    if (dots == 0 || dots_of(picture) > rtf::largest_picture || !has_room_for(dots)) return false;
    const QSizeF size = told_size(kept.size(), room_of_new_picture());
    QTextImageFormat format;
    format.setName(add_picture(kept));
    format.setWidth(size.width());
    format.setHeight(size.height());
    QTextCursor caret = textCursor();
    const QTextCharFormat letters = currentCharFormat();
    insert_picture_paragraph(caret, format);
    setTextCursor(caret);
    if (!letters.isImageFormat()) setCurrentCharFormat(letters);
    ensureCursorVisible();
    return true;
}

void RecipeText::resize_picture(PictureStep step) {
    const QTextCursor picture = picture_at_caret(*this);
    if (picture.isNull() || isReadOnly()) return;
    const int place = picture.selectionStart();
    const QSizeF shown =
        pictures_->shown_size(*document(), place, picture.charFormat().toImageFormat());
    tavernook::resize_picture(picture, step, shown, pictures_->room(*document(), place));
    ensureCursorVisible();
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

RecipeText::Key RecipeText::key_of(const QKeyEvent& event) const {
    const auto keys = event.keyCombination();
    const auto shifted = Qt::ControlModifier | Qt::ShiftModifier;
    if (event.matches(QKeySequence::ZoomIn) || keys == (Qt::ControlModifier | Qt::Key_Equal) ||
        keys == (shifted | Qt::Key_Plus)) {
        return Key::zoom_in;
    }
    if (event.matches(QKeySequence::ZoomOut)) return Key::zoom_out;
    if (keys == (Qt::ControlModifier | Qt::Key_0)) return Key::true_size;
    if (keys == (Qt::ControlModifier | Qt::Key_Y)) return Key::redo;
    if (isReadOnly() || picture_at_caret(*this).isNull()) return Key::none;
    if (keys == larger_keys) return Key::larger;
    if (keys == smaller_keys) return Key::smaller;
    return keys == original_keys ? Key::original : Key::none;
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
        case Key::larger:
            return resize_picture(PictureStep::larger);
        case Key::smaller:
            return resize_picture(PictureStep::smaller);
        case Key::original:
            return resize_picture(PictureStep::original);
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

// A click on a picture selects it.
void RecipeText::mouseReleaseEvent(QMouseEvent* event) {
    QTextEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || textCursor().hasSelection()) return;
    const QTextCursor picture = picture_at(*this, event->position().toPoint());
    if (!picture.isNull() && !isReadOnly()) setTextCursor(picture);
}

void RecipeText::contextMenuEvent(QContextMenuEvent* event) {
    const QTextCursor picture = picture_at(*this, event->pos());
    const bool by_mouse = event->reason() == QContextMenuEvent::Mouse;
    if (by_mouse && !picture.isNull() && !isReadOnly()) setTextCursor(picture);
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!isReadOnly() && !picture_at_caret(*this).isNull()) add_picture_commands(*menu);
    menu->popup(event->globalPos());
}

void RecipeText::add_picture_commands(QMenu& menu) {
    const auto add = [&](const QString& text, QKeyCombination keys, PictureStep step) {
        QAction* action = menu.addAction(text, this, [this, step] { resize_picture(step); });
        action->setShortcut(keys);
        action->setShortcutVisibleInContextMenu(true);
    };
    menu.addSeparator();
    add(tr("&Larger Picture"), larger_keys, PictureStep::larger);
    add(tr("S&maller Picture"), smaller_keys, PictureStep::smaller);
    add(tr("&Original Size"), original_keys, PictureStep::original);
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
           (has_rich_text(*source) || QTextEdit::canInsertFromMimeData(source));
}

void RecipeText::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !canInsertFromMimeData(source)) return;
    guarded([&] { insert_data(*source); });
}

void RecipeText::insert_data(const QMimeData& data) {
    const Arrival arrival =
        arrival_of(data, document()->defaultFont(), rtf::extent_of(*document()));
    if (arrival.content) insert_content(*arrival.content);
    if (!arrival.words.isEmpty()) insert_words(arrival.words);
    if (arrival.has_picture && !insert_picture(arrival.picture)) Q_EMIT picture_refused();
    if (!arrival.notice.isEmpty()) Q_EMIT told(arrival.notice);
}

void RecipeText::insert_words(const QString& words) {
    QTextCursor caret = textCursor();
    caret.beginEditBlock();
    make_room_in_paragraph(caret, rtf::extent_of(words));
    caret.insertText(words);
    caret.endEditBlock();
    setTextCursor(caret);
    ensureCursorVisible();
}

void RecipeText::insert_content(const rtf::Content& content) {
    ClosedDocument piece;
    piece.setDefaultFont(document()->defaultFont());
    rtf::fill(piece, content);
    long long dots = 0;
    for_each_picture(piece, [&](const QTextCursor&, const QTextImageFormat& format) {
        const QSize size = picture_dots(piece, format);
        dots += static_cast<long long>(size.width()) * size.height();
    });
    if (dots > 0 && !has_room_for(dots)) return Q_EMIT picture_refused();
    for_each_picture(piece, [&](QTextCursor place, QTextImageFormat format) {
        const QVariant picture = piece.resource(QTextDocument::ImageResource, format.name());
        format.setName(add_picture(picture.value<QImage>()));
        place.setCharFormat(format);
    });
    QTextCursor caret = textCursor();
    caret.beginEditBlock();
    make_room_in_paragraph(caret, rtf::extent_of(content));
    setTextCursor(caret);
    insert_document(caret, piece);
    caret.endEditBlock();
    ensureCursorVisible();
}

QMimeData* RecipeText::createMimeDataFromSelection() const {
    QMimeData* data = nullptr;
    guarded([&] { data = selection_data(*document(), textCursor()); });
    return data != nullptr ? data : new QMimeData;
}

}  // namespace tavernook
