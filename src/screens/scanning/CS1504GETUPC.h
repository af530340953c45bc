// The scan list: codes that came in by a scanner, by hand or from a file, to be booked as new
// stock, as used stock or onto the grocery list. The rows stay when the screen is closed; they go
// with their project (scanned_codes.h).
//
// Opened by the item inventory it picks one code: there is nothing to book then, and "Accept" in
// the place of "Close" hands the current row's code over.
//
// Reading and clearing the batch scanner take their time, and no other command begins meanwhile;
// Esc, "Stop" and whatever closes the screen end it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "barcodes/scan_booking.h"
#include "platform/screen_ports.h"
#include "screens/parts/running_work.h"
#include "screens/parts/screen.h"

namespace tavernook {

class ScanRowsPane;

namespace Ui {
class CS1504GETUPC;
}

class CS1504GETUPC : public Screen, public ports::CS1504GETUPC, public RunningWork {
    Q_OBJECT

  public:
    explicit CS1504GETUPC(QWidget* parent = nullptr);
    ~CS1504GETUPC() override;

    void refresh_item(std::string_view barcode, std::string_view name, i16 item) override;
    void single_get() override;
    void single_not_get() override;
    bool would_be_lost() const override { return false; }  // the codes stay in the scanner
    void end_work() override;

  protected:
    void follow_changes() override;
    void update_commands() override;
    void focusInEvent(QFocusEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    using Bookings = ScanBooking (*)(const std::vector<i32>& rows) noexcept;

    void set_up_toolbar();
    void connect_commands();
    void style();

    bool wait_for_scanner(const QString& told, const Work& work);
    void read_scanner();
    void clear();
    void import_file();
    void book(const std::vector<i32>& rows, const char* caption, Bookings booking,
              const char* what_for);
    void book_new(const std::vector<i32>& rows);
    void take_code(const std::string& code);
    void open_current();
    void remove_selected();
    void accept_or_close();
    void escape();

    std::unique_ptr<Ui::CS1504GETUPC> ui_;
    ScanRowsPane& rows_;
    bool picks_one_ = false;
    bool is_waiting_ = false;  // for the batch scanner
};

}  // namespace tavernook
