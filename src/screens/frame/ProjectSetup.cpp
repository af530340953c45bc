#include "screens/frame/ProjectSetup.h"

#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShowEvent>

#include "barcodes/scanners.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "reports/preview.h"
#include "screens/parts/list_font.h"
#include "screens/parts/shown_text.h"
#include "ui_ProjectSetup.h"

namespace tavernook {

namespace {

constexpr i16 noon = 12;

std::string typed_number(const QLineEdit& box) {
    return with_decimal_point(typed_text(box.text()));
}

QString two_digits(int number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

void select_number(QComboBox& list, i16 number) {
    list.setCurrentIndex(list.findData(int{number}));
}

// The number behind the list's line; `otherwise` when none is selected.
i16 selected_number(const QComboBox& list, i16 otherwise) {
    const QVariant data = list.currentData();
    return data.isValid() ? static_cast<i16>(data.toInt()) : otherwise;
}

void add_number(QComboBox& list, const QString& text, int number) {
    list.addItem(text, number);
}

}  // namespace

ProjectSetup::ProjectSetup(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::ProjectSetup>()), font_before_(font_size) {
    ui_->setupUi(this);
    fill_lists();
    settle_settings();
    show_settings();
    connect_settings();
    keep_lists_from_wheel();
    setFocusProxy(ui_->hour_list);
    ui_->hour_list->setFocus();
}

ProjectSetup::~ProjectSetup() = default;

// The parts know their sizes only once they are shown. A child window has a place of its own.
void ProjectSetup::showEvent(QShowEvent* event) {
    if (!isWindow()) return;
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    QMetaObject::invokeMethod(this, &ProjectSetup::take_room, Qt::QueuedConnection);
}

void ProjectSetup::keep_lists_from_wheel() {
    for (QComboBox* list : findChildren<QComboBox*>()) {
        list->setFocusPolicy(Qt::StrongFocus);
        list->installEventFilter(this);
    }
}

// A list passes the wheel on: it scrolls the page and chooses nothing.
bool ProjectSetup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel) return QDialog::eventFilter(watched, event);
    event->ignore();
    return true;
}

QSize ProjectSetup::sizeHint() const {
    return QDialog::sizeHint() - ui_->setup_scroll->sizeHint() + ui_->setup_content->sizeHint();
}

// All of it in sight where the screen has the room for it and for the window's frame; the rest
// scrolls, so that the buttons are always there.
void ProjectSetup::take_room() {
    QSize wanted = size() - ui_->setup_scroll->size() + ui_->setup_content->sizeHint();
    const QSize frame(0, 3 * fontMetrics().height());
    const QSize room = screen()->availableGeometry().size() - frame;
    const QScrollBar& bar = *ui_->setup_scroll->verticalScrollBar();
    if (wanted.height() > room.height()) wanted.rwidth() += bar.sizeHint().width();
    resize(wanted.boundedTo(room));
    adjustPosition(parentWidget());
}

void ProjectSetup::fill_lists() {
    for (int hour = 1; hour <= noon; ++hour) {
        add_number(*ui_->hour_list, QString::number(hour), hour);
    }
    select_number(*ui_->hour_list, noon);
    for (int minute = 0; minute < 60; ++minute) {
        add_number(*ui_->minute_list, two_digits(minute), minute);
    }
    ui_->half_list->addItems({QStringLiteral("AM"), QStringLiteral("PM")});
    for (const i16 symbol : currency_symbols) {
        add_number(*ui_->currency_list, QString(QChar(symbol)), symbol);
    }
    for (const i16 size : font_sizes) add_number(*ui_->font_list, QString::number(size), size);
    ui_->scanner_list->addItems({QStringLiteral("Scanner with Keyboard Wedge"),
                                 QStringLiteral("Symbol CS1504 Scanner"),
                                 QStringLiteral("Cue Cat Scanner"), QStringLiteral("No Scanner")});
    ui_->port_list->name_ports();
}

void ProjectSetup::show_settings() {
    const SetupTexts present = present_setup();
    ui_->days_ahead->setText(shown_text(present.audit_days_ahead));
    ui_->expiration_warning->setText(shown_text(present.expiration_warning_days));
    ui_->sales_tax->setText(shown_text(present.sales_tax));
    ui_->ftp_server->setText(shown_text(present.ftp_server));
    ui_->ftp_account->setText(shown_text(present.ftp_account));
    ui_->ftp_password->setText(shown_text(present.ftp_password));
    ui_->ftp_directory->setText(shown_text(present.ftp_directory));
    select_number(*ui_->currency_list, present.currency_symbol);
    select_number(*ui_->font_list, present.font_size);
    show_audit_time_lists();
    show_scanner();
    ui_->audit_on_startup->setChecked(audit_on_startup != 0);
    ui_->save_after_audit->setChecked(save_after_audit != 0);
    ui_->show_toolbar_text->setChecked(show_toolbar_text != 0);
    ui_->ftp_send_after_audit->setChecked(ftp_send_after_audit != 0);
}

void ProjectSetup::show_audit_time_lists() {
    const ShownAuditTime time = shown_audit_time();
    if (time.hour != 0) select_number(*ui_->hour_list, time.hour);
    if (time.minute > 0 && time.minute < 60) select_number(*ui_->minute_list, time.minute);
    ui_->half_list->setCurrentIndex(time.afternoon ? 1 : 0);
}

// A stored batch scanner is shown by its short name.
void ProjectSetup::show_scanner() {
    const bool known = scanner_type >= 0 && scanner_type < scanner_types;
    ui_->scanner_list->setCurrentIndex(known ? scanner_type : -1);
    if (scanner_type == batch_scanner) {
        ui_->scanner_list->setItemText(batch_scanner, QStringLiteral("CS1504 scanner"));
    }
    const bool port_known = scanner_comm_port >= 1 && scanner_comm_port <= comm_ports;
    ui_->port_list->setCurrentIndex(port_known ? scanner_comm_port - 1 : -1);
    update_port();
}

void ProjectSetup::update_port() {
    const bool needed = ui_->scanner_list->currentIndex() == batch_scanner;
    ui_->port_list->setEnabled(needed);
    ui_->port_label->setEnabled(needed);
}

void ProjectSetup::write_at_once(QCheckBox* box, i16& setting, i16 when_checked) {
    connect(box, &QCheckBox::toggled, this, [this, &setting, when_checked](bool checked) {
        steps_.run([&] { set_setting(setting, checked ? when_checked : i16_false); });
    });
}

void ProjectSetup::connect_settings() {
    connect(ui_->project_info_button, &QPushButton::clicked, this,
            [this] { steps_.run(preview_project); });
    write_at_once(ui_->audit_on_startup, audit_on_startup, 1);
    write_at_once(ui_->save_after_audit, save_after_audit, 1);
    write_at_once(ui_->show_toolbar_text, show_toolbar_text, i16_true);
    write_at_once(ui_->ftp_send_after_audit, ftp_send_after_audit, i16_true);
    connect(ui_->show_toolbar_text, &QCheckBox::toggled, this,
            [](bool checked) { main_window().set_toolbar_captions(checked); });
    for (QComboBox* list : {ui_->hour_list, ui_->minute_list, ui_->half_list}) {
        connect(list, &QComboBox::currentIndexChanged, this,
                [](int) { project_modified = i16_true; });
    }
    connect(ui_->scanner_list, &QComboBox::currentIndexChanged, this, [this](int place) {
        if (place >= 0) steps_.run([place] { set_setting(scanner_type, static_cast<i16>(place)); });
        update_port();
    });
    connect(ui_->port_list, &QComboBox::currentIndexChanged, this, [this](int place) {
        if (place < 0) return;
        steps_.run([place] { set_setting(scanner_comm_port, static_cast<i16>(place + 1)); });
    });
    connect(ui_->font_list, &QComboBox::currentIndexChanged, this, [this](int) {
        font_was_tried_ = true;
        apply_font_size(selected_number(*ui_->font_list, font_size));
    });
    connect(ui_->ok_button, &QPushButton::clicked, this, &ProjectSetup::accept);
    connect(ui_->cancel_button, &QPushButton::clicked, this, &ProjectSetup::reject);
}

// A list in which nothing is selected leaves its setting as it is.
SetupTexts ProjectSetup::typed_setup() const {
    SetupTexts texts;
    texts.audit_hour = stored_audit_hour(selected_number(*ui_->hour_list, noon),
                                         ui_->half_list->currentIndex() == 1);
    texts.audit_minute = selected_number(*ui_->minute_list, audit_minute);
    texts.audit_days_ahead = typed_number(*ui_->days_ahead);
    texts.expiration_warning_days = typed_number(*ui_->expiration_warning);
    texts.sales_tax = typed_number(*ui_->sales_tax);
    texts.currency_symbol = selected_number(*ui_->currency_list, currency_symbol);
    texts.font_size = selected_number(*ui_->font_list, font_size);
    texts.ftp_server = typed_text(ui_->ftp_server->text());
    texts.ftp_account = typed_text(ui_->ftp_account->text());
    texts.ftp_password = typed_text(ui_->ftp_password->text());
    texts.ftp_directory = typed_text(ui_->ftp_directory->text());
    return texts;
}

// A number that no setting can hold keeps the screen open.
void ProjectSetup::accept() {
    bool done = false;
    steps_.run([&] {
        accept_setup(typed_setup());
        done = true;
    });
    if (!done) return;
    if (font_was_tried_) apply_font_size(font_size);
    QDialog::accept();
}

// The lists take back the size that was only tried.
void ProjectSetup::reject() {
    if (font_was_tried_) apply_font_size(font_before_);
    QDialog::reject();
}

}  // namespace tavernook
