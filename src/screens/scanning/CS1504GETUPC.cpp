#include "screens/scanning/CS1504GETUPC.h"

#include <QCloseEvent>
#include <QPointer>
#include <QToolBar>
#include <algorithm>

#include "barcodes/scan_list.h"
#include "barcodes/scan_sources.h"
#include "barcodes/scanners.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "platform/batch_scanner.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/toolbar_parts.h"
#include "screens/scanning/scan_rows_pane.h"
#include "ui_CS1504GETUPC.h"

namespace tavernook {

namespace {

constexpr const char* usual_caption = "Scan List";
constexpr const char* booked_caption = "Update Complete";
constexpr const char* caption_of_new = "Updating barcodes to Item Inventory as New/Update";
constexpr const char* caption_of_used = "Updating barcodes to Item Inventory as Used";

QString codes_told(int count) {
    return count == 1 ? QObject::tr("1 code") : QObject::tr("%1 codes").arg(count);
}

bool agrees_to_remove(const QString& codes) {
    const std::string question = typed_text(
        QObject::tr("Do you want to take all %1 that are marked off the list?").arg(codes));
    return boxes().message(question, Buttons::yes_no, "Scan List", DefaultButton::no) ==
           Answer::yes;
}

QString trouble_told() {
    return shown_text(scanner_device().trouble());
}

// What is still to be done comes first: the end of a long line may be out of sight.
QString words_for(const ScanBooking& booking, const char* what_for) {
    QStringList words;
    const int kept = static_cast<int>(booking.kept.size());
    if (kept > 0) {
        const QString first = shown_text(booking.kept.front());
        words << QObject::tr("Still on the list: %1").arg(first) +
                     (kept == 1 ? QString() : QObject::tr("; and %1 more").arg(kept - 1)) +
                     QLatin1Char('.');
    }
    if (booking.booked > 0) {
        words << QObject::tr("%1 %2.").arg(codes_told(booking.booked), QObject::tr(what_for));
    }
    if (booking.ignored > 0) {
        words << QObject::tr("%1 ignored.").arg(codes_told(booking.ignored));
    }
    if (booking.booked == 0) words << QObject::tr("Nothing was booked.");
    return words.join(QLatin1Char(' '));
}

}  // namespace

CS1504GETUPC::CS1504GETUPC(QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::CS1504GETUPC>()),
      rows_((ui_->setupUi(this), *ui_->rows_panel)) {
    setWindowIcon(icon(QStringLiteral("scan_list")));
    set_up_toolbar();
    connect_commands();
    rows_.watch_for_codes(*this);
    enter_presses_buttons(*this);
    set_scan_list(this);
    style();
}

CS1504GETUPC::~CS1504GETUPC() {
    if (scan_list() == this) set_scan_list(nullptr);
}

void CS1504GETUPC::set_up_toolbar() {
    QToolBar& bar = *ui_->scan_toolbar;
    show_captions(bar);
    fill_toolbar(*this, bar,
                 {{1, "scan_list"},
                  {2, "delete"},
                  {3, "put_in_stock"},
                  {4, "usage"},
                  {5, "grocery_list"},
                  {6, "import"}});
    enlarge_command(bar, *ui_->scan_toolbar_3);
    on_command(ui_->scan_toolbar_1, [this] { read_scanner(); });
    on_command(ui_->scan_toolbar_2, [this] { clear(); });
    on_command(ui_->scan_toolbar_3, [this] { book_new(rows_.selected()); });
    on_command(ui_->scan_toolbar_4, [this] {
        book(rows_.selected(), caption_of_used, Used_Update, "taken out of the stock");
    });
    // Kept: the caption is that of used stock.
    on_command(ui_->scan_toolbar_5, [this] {
        book(rows_.selected(), caption_of_used, Add_Shopping_List, "put on the grocery list");
    });
    on_command(ui_->scan_toolbar_6, [this] { import_file(); });
}

void CS1504GETUPC::connect_commands() {
    const auto ask = [this](void (*question)(i32) noexcept) {
        return [this, question] {
            run([this, question] {
                if (const i32 row = rows_.current(); row != 0) question(row);
            });
        };
    };
    connect(&rows_, &ScanRowsPane::scanned, this,
            [this](const std::string& code) { run([&] { take_code(code); }); });
    connect(&rows_, &ScanRowsPane::open_wanted, this, [this] { run([this] { open_current(); }); });
    connect(&rows_, &ScanRowsPane::remove_wanted, this,
            [this] { run([this] { remove_selected(); }); });
    connect(&rows_, &ScanRowsPane::quantity_wanted, this, ask(ModQuantity));
    connect(&rows_, &ScanRowsPane::lot_wanted, this, ask(ModLot));
    on_command(ui_->close_button, [this] { accept_or_close(); });
    // No command begins while the scanner is waited for, but leaving ends the wait.
    connect(ui_->close_button, &QPushButton::clicked, this, [this] {
        if (is_waiting_) close_screen(*this);
    });
    connect(ui_->stop_button, &QPushButton::clicked, this, [this] { end_work(); });
    on_keys(*this, Qt::Key_Escape, [this] { escape(); });
    on_keys(*this, QKeySequence::Refresh, [this] { run(refresh_scan_rows); });
}

// --- what is shown -------------------------------------------------------------------------------

void CS1504GETUPC::follow_changes() {
    rows_.follow_changes();
}

void CS1504GETUPC::update_commands() {
    for (QAction* action : {ui_->scan_toolbar_1, ui_->scan_toolbar_2}) {
        action->setVisible(scanner_type == batch_scanner);
        action->setEnabled(!is_waiting_);
    }
    for (QAction* action : {ui_->scan_toolbar_3, ui_->scan_toolbar_4, ui_->scan_toolbar_5}) {
        action->setEnabled(!is_waiting_ && !rows_.is_empty());
    }
    ui_->scan_toolbar_6->setEnabled(!is_waiting_);
    ui_->work_label->setVisible(is_waiting_);
    ui_->stop_button->setVisible(is_waiting_);
}

void CS1504GETUPC::refresh_item(std::string_view barcode, std::string_view name, i16 item) {
    tavernook::refresh_item(barcode, name, item);
}

void CS1504GETUPC::single_get() {
    picks_one_ = true;
    style();
}

void CS1504GETUPC::single_not_get() {
    picks_one_ = false;
    style();
}

void CS1504GETUPC::style() {
    for (QAction* action : {ui_->scan_toolbar_3, ui_->scan_toolbar_4, ui_->scan_toolbar_5}) {
        action->setVisible(!picks_one_);
    }
    ui_->close_button->setText(picks_one_ ? tr("&Accept") : tr("&Close"));
    ui_->close_button->setToolTip(
        picks_one_ ? tr("Hand the marked code over to the item inventory.") : QString());
}

// The batch scanner is read by its button; all others type.
void CS1504GETUPC::focusInEvent(QFocusEvent* event) {
    const bool waits_for_button = scanner_type == batch_scanner && rows_.is_empty();
    if (!waits_for_button) return rows_.wait_for_codes(event->reason());
    ui_->scan_toolbar->widgetForAction(ui_->scan_toolbar_1)->setFocus(event->reason());
}

// --- where codes come from -----------------------------------------------------------------------

void CS1504GETUPC::take_code(const std::string& code) {
    setWindowTitle(tr(usual_caption));
    populate_item(code, 0, "");
    const ScanRow& row = scan_rows.back();
    if (code.empty()) return say(tr("No barcode could be read. Please scan again."));
    say(row.is_known ? row.name + " is on the list." : "No item has the barcode \"" + code + "\".");
}

// Windows hear the user meanwhile. False when this screen has gone behind it.
bool CS1504GETUPC::wait_for_scanner(const QString& told, const Work& work) {
    const QPointer<CS1504GETUPC> still(this);
    setWindowTitle(tr(usual_caption));
    ui_->work_label->setText(told);
    is_waiting_ = true;
    update_commands();
    ui_->stop_button->setFocus();
    work();
    if (!still) return false;
    is_waiting_ = false;
    rows_.focus_list();
    return true;
}

void CS1504GETUPC::read_scanner() {
    int count = 0;
    const auto read = [&count] { count = read_cs1504(); };
    if (!wait_for_scanner(tr("The scanner is being read."), read)) return;
    say(count > 0 ? tr("%1 came from the scanner.").arg(codes_told(count)) : trouble_told());
}

void CS1504GETUPC::clear() {
    clear_scan_list();
    rows_.follow_changes();
    if (!wait_for_scanner(tr("The scanner is being cleared."), clear_scanner)) return;
    const QString trouble = trouble_told();
    say(trouble.isEmpty() ? tr("The list is empty, and the scanner was told to clear its codes.")
                          : tr("The list is empty.  %1").arg(trouble));
}

void CS1504GETUPC::import_file() {
    const QPointer<CS1504GETUPC> still(this);
    const ScanImport import = Import_File();
    if (!still || !import.has_begun) return;
    const QString came = tr("%1 imported").arg(codes_told(import.rows));
    const QString end = import.stopped_at_line == 0
                            ? QString()
                            : tr(", stopped at line %1").arg(import.stopped_at_line);
    setWindowTitle(tr("%1 - %2%3").arg(tr(usual_caption), came, end));
    say(came + end + QLatin1Char('.'));
}

// --- booking -------------------------------------------------------------------------------------

void CS1504GETUPC::book_new(const std::vector<i32>& rows) {
    book(rows, caption_of_new, Add_New, "booked as new stock");
}

void CS1504GETUPC::book(const std::vector<i32>& rows, const char* caption, Bookings booking,
                        const char* what_for) {
    if (rows_.is_empty()) return;
    if (rows.empty()) return say(tr("Mark the codes first, all of them by Ctrl+A."));
    const QPointer<CS1504GETUPC> still(this);
    setWindowTitle(tr(caption));
    const ScanBooking done = booking(rows);
    if (!still) return;
    setWindowTitle(tr(booked_caption));
    say(words_for(done, what_for));
}

// Of an unknown code this row alone is booked, whatever else is marked.
void CS1504GETUPC::open_current() {
    const ScanRow* row = scan_row(rows_.current());
    if (row == nullptr) return;
    if (picks_one_) return accept_or_close();
    const i16 item = item_of_scan(row->barcode);
    if (item == 0) return book_new({row->id});
    if (show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (ports::FoodInventory* screen = food_inventory()) screen->view_item(item, i16_true);
}

// Rows are marked as they come, so several of them may be marked by nobody's wish.
void CS1504GETUPC::remove_selected() {
    std::vector<i32> rows = rows_.selected();
    const i32 current = rows_.current();
    if (std::find(rows.begin(), rows.end(), current) == rows.end()) rows = {current};
    if (scan_row(current) == nullptr) return;
    const QPointer<CS1504GETUPC> still(this);
    const QString codes = codes_told(static_cast<int>(rows.size()));
    if (rows.size() > 1 && (!agrees_to_remove(codes) || !still)) return;
    delete_scan_rows(rows);
    say(tr("%1 taken off the list.").arg(codes));
}

// --- the end -------------------------------------------------------------------------------------

void CS1504GETUPC::accept_or_close() {
    const ScanRow* row = scan_row(rows_.marked_one());
    if (picks_one_ && row != nullptr) {
        const std::string code = row->barcode;
        show_screen(QStringLiteral("FoodInventory"));
        if (ports::FoodInventory* screen = food_inventory()) screen->take_barcode(code);
    } else if (picks_one_ && !rows_.is_empty()) {
        return say(tr("Mark the code first.  Esc leaves without one."));
    }
    close_screen(*this);
}

// What was begun last goes first, the screen after it.
void CS1504GETUPC::escape() {
    if (is_waiting_) return end_work();
    if (!rows_.discard_code()) close_screen(*this);
}

void CS1504GETUPC::end_work() {
    if (is_waiting_) scanner_device().cancel();
}

void CS1504GETUPC::closeEvent(QCloseEvent* event) {
    end_work();
    Screen::closeEvent(event);
}

}  // namespace tavernook
