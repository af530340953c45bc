#include "screens/aids/help_page.h"

#include <QWheelEvent>
#include <algorithm>

#include "screens/aids/help_book.h"

namespace tavernook {

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent), normal_points_(font().pointSizeF()) {
    constexpr qreal margin = 16;
    document()->setDocumentMargin(margin);
}

void HelpPage::set_text_step(int step) {
    constexpr int smallest = -3;
    constexpr int largest = 24;
    step_ = std::clamp(step, smallest, largest);
    QFont wanted = font();
    wanted.setPointSizeF(normal_points_ + step_);
    setFont(wanted);
}

bool HelpPage::select_next(const QString& words, bool backwards) {
    const QTextDocument::FindFlags way =
        backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (words.isEmpty()) return false;
    if (find(words, way)) return true;
    const QTextCursor before = textCursor();
    moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    const bool found = find(words, way);
    if (!found) setTextCursor(before);
    return found;
}

QVariant HelpPage::loadResource(int type, const QUrl& url) {
    if (book_ == nullptr) return {};
    const QByteArray bytes = book_->bytes(url);
    if (type == QTextDocument::HtmlResource) return QString::fromUtf8(bytes);
    return bytes;
}

void HelpPage::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    if (book_ == nullptr || book_->bytes(url).isEmpty()) return;
    QTextBrowser::doSetSource(url, type);
}

void HelpPage::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == Qt::NoModifier) {
        return QTextBrowser::wheelEvent(event);
    }
    if (event->angleDelta().y() != 0) set_text_step(step_ + (event->angleDelta().y() > 0 ? 1 : -1));
    event->accept();
}

}  // namespace tavernook
