#include "screens/frame/screen_over_dialog.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include "screens/parts/list_parts.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 100;
constexpr int comfortable_lines = 40;

}  // namespace

ScreenOverDialog::ScreenOverDialog(QWidget& screen, QWidget& dialog)
    : QDialog(&dialog), screen_(screen) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(&screen);
    setWindowTitle(screen.windowTitle());
    screen.installEventFilter(this);
    resize(letters_wide(*this, comfortable_letters), fontMetrics().height() * comfortable_lines);
}

void ScreenOverDialog::closeEvent(QCloseEvent* event) {
    event->setAccepted(screen_.close());
}

void ScreenOverDialog::reject() {
    screen_.close();
}

bool ScreenOverDialog::eventFilter(QObject* watched, QEvent* event) {
    const bool has_closed =
        watched == &screen_ && event->type() == QEvent::Hide && screen_.isHidden() && isVisible();
    if (has_closed) done(QDialog::Accepted);
    return QDialog::eventFilter(watched, event);
}

}  // namespace tavernook
