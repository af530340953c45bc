// The progress window of long work, with a button "Cancel" for work that offers it. It comes up
// only when the work has lasted longer than half a second since `show`, so that a quick save does
// not flicker.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <memory>
#include <optional>

#include "basics/date.h"
#include "platform/save_progress.h"
#include "screens/parts/drops.h"

namespace tavernook {

namespace Ui {
class SaveProgress;
}

// Its calls repaint it at once and let neither the user's input nor the main window's audit in, but
// for `is_cancelled`: while the window is up that lets in what the user does, which is for this
// window alone, as it is modal.
class SaveProgress : public QDialog, public ports::SaveProgress {
    Q_OBJECT

  public:
    explicit SaveProgress(QWidget* parent = nullptr);
    ~SaveProgress() override;

    void load(std::string_view caption, std::string_view label) override;
    void show() override;
    void set_label(std::string_view label) override;
    void workbar(int percent) override;
    void offer_cancel() override;
    bool is_cancelled() override;
    void hide() override;
    void unload() override;

    // Between `load` and `unload`.
    bool work_is_running() const { return running_; }

    // The user cannot close it; where the work can be cancelled Escape does that.
    void reject() override;

  private:
    void come_up_when_due();
    void come_up();
    void paint_now();

    std::unique_ptr<Ui::SaveProgress> ui_;
    std::optional<DropsRefused> drops_refused_;  // while the work is running
    std::optional<Date> wanted_since_;
    QElapsedTimer since_hearing_;
    bool running_ = false;
    bool can_cancel_ = false;
    bool cancelled_ = false;
};

}  // namespace tavernook
