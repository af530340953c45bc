#include "screens/frame/SaveProgress.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QProgressBar>
#include <QThread>
#include <QWindow>
#include <algorithm>

#include "platform/platform.h"
#include "screens/parts/shown_text.h"
#include "ui_SaveProgress.h"

namespace tavernook {

namespace {

constexpr double patience = 0.5 / 86400.0;  // half a second in days
constexpr int comfortable_letters = 48;
constexpr qint64 hearing_ms = 50;

}  // namespace

SaveProgress::SaveProgress(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      ui_(std::make_unique<Ui::SaveProgress>()) {
    ui_->setupUi(this);
    ui_->label->setMinimumWidth(fontMetrics().averageCharWidth() * comfortable_letters);
    ui_->Cancel->hide();
    connect(ui_->Cancel, &QPushButton::clicked, this, &SaveProgress::reject);
}

SaveProgress::~SaveProgress() = default;

void SaveProgress::load(std::string_view caption, std::string_view label) {
    drops_refused_.emplace();
    running_ = true;
    can_cancel_ = false;
    cancelled_ = false;
    ui_->Cancel->hide();
    setWindowTitle(shown_text(caption));
    ui_->bar->setValue(0);
    set_label(label);
}

void SaveProgress::show() {
    if (!wanted_since_) wanted_since_ = platform_clock().now();
}

void SaveProgress::set_label(std::string_view label) {
    ui_->label->setText(shown_text(label));
    setAccessibleDescription(ui_->label->text());
    come_up_when_due();
    paint_now();
}

void SaveProgress::workbar(int percent) {
    ui_->bar->setValue(std::clamp(percent, 0, 100));
    come_up_when_due();
    paint_now();
}

void SaveProgress::offer_cancel() {
    can_cancel_ = true;
    ui_->Cancel->setEnabled(true);
    ui_->Cancel->show();
}

bool SaveProgress::is_cancelled() {
    come_up_when_due();
    if (isVisible() && (!since_hearing_.isValid() || since_hearing_.hasExpired(hearing_ms))) {
        QCoreApplication::processEvents();
        since_hearing_.start();
    }
    return cancelled_;
}

void SaveProgress::reject() {
    if (!can_cancel_) return;
    cancelled_ = true;
    ui_->Cancel->setEnabled(false);
}

void SaveProgress::hide() {
    wanted_since_.reset();
    QDialog::hide();
}

void SaveProgress::unload() {
    hide();
    drops_refused_.reset();
    running_ = false;
}

void SaveProgress::come_up_when_due() {
    if (!wanted_since_ || isVisible()) return;
    if (platform_clock().now() - *wanted_since_ > patience) come_up();
}

// A new window can be painted only after the desktop has answered. A desktop that does not is not
// waited for.
void SaveProgress::come_up() {
    adjustSize();
    QDialog::show();
    const QDeadlineTimer deadline(200);
    while (!windowHandle()->isExposed() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(1);
    }
}

void SaveProgress::paint_now() {
    if (!isVisible()) return;
    layout()->activate();
    repaint();
}

}  // namespace tavernook
