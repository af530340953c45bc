#include "screens/exchange/ImportForm.h"

#include <QApplication>
#include <algorithm>

#include "screens/parts/shown_text.h"
#include "ui_ImportForm.h"

namespace tavernook {

namespace {

constexpr int breath_ms = 50;
constexpr int lines_ms = 250;  // measuring a full list takes half of it

}  // namespace

ImportForm::ImportForm(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::ImportForm>()) {
    ui_->setupUi(this);
    const int letter = fontMetrics().averageCharWidth();
    resize(letter * 70, fontMetrics().lineSpacing() * 20);
    connect(ui_->button, &QPushButton::clicked, this, &ImportForm::reject);
    show_later_.setSingleShot(true);
    show_later_.setInterval(breath_ms);
    connect(&show_later_, &QTimer::timeout, this, &ImportForm::show_lines);
}

ImportForm::~ImportForm() = default;

void ImportForm::begin(std::string_view caption) {
    setWindowTitle(shown_text(caption));
    waiting_.clear();
    ui_->List1->clear();
    ui_->outcome->hide();
    ui_->button->setAccessibleDescription({});
    ui_->bar->setValue(0);
    works_ = true;
    cancelled_ = false;
    drops_refused_.emplace();
    show_state();
    show();
    raise();
    activateWindow();
    ui_->button->setFocus();
    breathe();
}

void ImportForm::add_line(std::string_view text) {
    waiting_.append(shown_text(text));
    if (!works_ || since_lines_.hasExpired(lines_ms)) return show_lines();
    show_later_.start();  // when a question stops the work, whose lines have come so far
}

void ImportForm::workbar(int percent) {
    ui_->bar->setValue(std::clamp(percent, 0, 100));
}

bool ImportForm::is_cancelled() {
    if (since_breath_.hasExpired(breath_ms)) breathe();
    return cancelled_;
}

void ImportForm::end() {
    works_ = false;
    drops_refused_.reset();
    show_lines();
    show_outcome();
    show_state();
    activateWindow();  // a progress window that went has left the focus behind this one
    ui_->button->setFocus();
}

void ImportForm::reject() {
    if (!works_) return hide();
    cancelled_ = true;
    show_state();
}

void ImportForm::show_lines() {
    since_lines_.start();
    if (waiting_.isEmpty()) return;
    ui_->List1->addItems(waiting_);
    waiting_.clear();
    ui_->List1->setCurrentRow(ui_->List1->count() - 1);
}

// The list cuts long lines; the last one tells what came of it all.
void ImportForm::show_outcome() {
    const QListWidgetItem* last = ui_->List1->currentItem();
    if (last == nullptr) return;
    ui_->outcome->setText(last->text());
    ui_->outcome->show();
    layout()->activate();
    ui_->List1->scrollToItem(last);
    ui_->button->setAccessibleDescription(last->text());
}

// Only this window hears the user: as a modal one it holds the others up.
void ImportForm::breathe() {
    QCoreApplication::processEvents();
    since_breath_.start();
}

void ImportForm::show_state() {
    ui_->button->setText(works_ ? tr("&Cancel") : tr("C&lose"));
    ui_->button->setToolTip(works_ ? tr("Stop, and leave everything as it was.") : QString());
    ui_->button->setEnabled(!works_ || !cancelled_);
    ui_->button->setDefault(!works_);  // an Enter that comes too late cancels nothing
}

}  // namespace tavernook
