// The window that tells of an exchange of inventories: line by line what is done, a bar, and a
// button that is "Cancel" as long as the work goes on and "Close" behind it. While it works no
// other window of the program hears the user; what it has told stays until it is closed.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/screen_ports.h"
#include "screens/parts/drops.h"

namespace tavernook {

namespace Ui {
class ImportForm;
}

class ImportForm : public QDialog, public ports::ImportForm {
    Q_OBJECT

  public:
    explicit ImportForm(QWidget* parent = nullptr);
    ~ImportForm() override;

    // Ten thousand lines must not take ten thousand paintings: lines come up together, a few times
    // a second, and all of them at the end.
    void begin(std::string_view caption) override;
    void add_line(std::string_view text) override;
    void workbar(int percent) override;
    bool is_cancelled() override;
    void end() override;

    // Escape and closing are the button.
    void reject() override;

  private:
    void show_lines();
    void show_outcome();
    void breathe();
    void show_state();

    std::unique_ptr<Ui::ImportForm> ui_;
    std::optional<DropsRefused> drops_refused_;  // while it works
    QStringList waiting_;
    QTimer show_later_;
    QElapsedTimer since_lines_;
    QElapsedTimer since_breath_;
    bool works_ = false;
    bool cancelled_ = false;
};

}  // namespace tavernook
