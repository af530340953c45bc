// The window that publishes the household's pages: what is done, line by line, a bar, "Close" and
// "Cancel". Its first tick, once it is up, starts the export, which ends with "Close" enabled or
// with the window gone. It stands beside the other windows and holds none of them up.
//
// While the export runs the window is on the stack of `send_reports`, though it may be closed at
// any line and deleted with it: what is told of it then goes nowhere.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <memory>
#include <string_view>

#include "platform/ftp_export.h"
#include "reports/publishing.h"

namespace tavernook {

namespace Ui {
class ftpexport;
}

class ftpexport : public QDialog {
    Q_OBJECT

  public:
    explicit ftpexport(QWidget* parent);
    ~ftpexport() override;

    // Returns at once.
    void begin(ports::FtpExport& port);

    void updatetext(std::string_view text);
    void set_progress(int percent);
    void enable_close(bool enabled);

    // Hides it, ends what runs, and deletes it.
    void unload();

    // Escape stops the export; when none runs it closes the window.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void tick(ports::FtpExport& port);
    void repaint_and_hear();

    std::unique_ptr<Ui::ftpexport> ui_;
    QTimer timer_;
};

// The window as the logic knows it: made when it is shown, and gone when it is closed.
class PublishingWindow : public ports::FtpExport {
  public:
    // `over` gives the window to stand over.
    explicit PublishingWindow(QWidget& over) : over_(over) {}
    ~PublishingWindow() override;

    // While an export runs its style stays as it is.
    void setstyle(i16 style) override;

    // One that has come to its end gives way to a new one; one that runs comes to the front.
    // Without a user it takes the keyboard from nobody.
    void show() override;

    void updatetext(std::string_view text) override;
    void set_progress(int percent) override;
    void enable_close(bool enabled) override;
    void unload() override;

  private:
    QWidget& over_;
    QPointer<ftpexport> window_;
};

}  // namespace tavernook
