#include "screens/reports/ftpexport.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <algorithm>

#include "reports/published_pages.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen.h"
#include "screens/parts/shown_text.h"
#include "ui_ftpexport.h"

namespace tavernook {

namespace {

constexpr int comfortable_letters = 72;
constexpr int comfortable_lines = 18;

}  // namespace

ftpexport::ftpexport(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::ftpexport>()) {
    ui_->setupUi(this);
    resize(letters_wide(*this, comfortable_letters),
           fontMetrics().lineSpacing() * comfortable_lines);
    timer_.setSingleShot(true);
    timer_.setInterval(0);
    connect(ui_->Close, &QPushButton::clicked, this, &ftpexport::unload);
    connect(ui_->Cancel, &QPushButton::clicked, this, [] { cancel_export(); });
}

ftpexport::~ftpexport() = default;

void ftpexport::begin(ports::FtpExport& port) {
    connect(&timer_, &QTimer::timeout, this, [this, &port] { tick(port); });
    updatetext("Preparing Files....");
    timer_.start();
}

void ftpexport::tick(ports::FtpExport& port) {
    timer_.stop();
    enable_close(false);
    send_reports(port, published_pages());
}

void ftpexport::updatetext(std::string_view text) {
    const QPointer<ftpexport> here = this;
    repaint_and_hear();
    if (here.isNull() || !isVisible()) return;
    ui_->steps->addItem(shown_text(text));
    ui_->steps->setCurrentRow(ui_->steps->count() - 1);
    repaint_and_hear();
}

void ftpexport::repaint_and_hear() {
    QCoreApplication::processEvents();
}

void ftpexport::set_progress(int percent) {
    ui_->bar->setValue(std::clamp(percent, 0, 100));
}

// "Cancel" has nothing to stop where "Close" has nothing to wait for.
void ftpexport::enable_close(bool enabled) {
    ui_->Close->setEnabled(enabled);
    ui_->Cancel->setEnabled(!enabled);
    if (isActiveWindow()) (enabled ? ui_->Close : ui_->Cancel)->setFocus();
}

void ftpexport::unload() {
    timer_.stop();
    hide();
    cancel_export();
    deleteLater();
}

void ftpexport::reject() {
    if (export_runs()) return cancel_export();
    unload();
}

void ftpexport::closeEvent(QCloseEvent* event) {
    event->accept();
    unload();
}

// --- the port ------------------------------------------------------------------------------------

PublishingWindow::~PublishingWindow() {
    delete window_;
}

void PublishingWindow::setstyle(i16 style) {
    if (!export_runs()) tavernook::setstyle(style);
}

void PublishingWindow::show() {
    if (export_runs()) {
        if (window_ == nullptr) return say(tr("The export that was cancelled has not ended yet."));
        if (export_style == 1) return;
        window_->raise();
        return window_->activateWindow();
    }
    delete window_;
    window_ = new ftpexport(&over_);
    window_->setAttribute(Qt::WA_ShowWithoutActivating, export_style == 1);
    window_->show();
    window_->begin(*this);
}

void PublishingWindow::updatetext(std::string_view text) {
    if (window_ != nullptr) window_->updatetext(text);
}

void PublishingWindow::set_progress(int percent) {
    if (window_ != nullptr) window_->set_progress(percent);
}

void PublishingWindow::enable_close(bool enabled) {
    if (window_ != nullptr) window_->enable_close(enabled);
}

void PublishingWindow::unload() {
    if (window_ != nullptr) window_->unload();
}

}  // namespace tavernook
