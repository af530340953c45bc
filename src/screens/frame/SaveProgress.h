// The progress window of long work. It comes up only when the work has lasted longer than half a
// second since `show`, so that a quick save does not flicker.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "basics/date.h"
#include "platform/save_progress.h"

namespace tavernook {

namespace Ui {
class SaveProgress;
}

// Its calls repaint it at once and let neither the user's input nor the main window's audit in.
class SaveProgress : public QDialog, public ports::SaveProgress {
    Q_OBJECT

  public:
    explicit SaveProgress(QWidget* parent = nullptr);
    ~SaveProgress() override;

    void load(std::string_view caption, std::string_view label) override;
    void show() override;
    void set_label(std::string_view label) override;
    void workbar(int percent) override;
    void hide() override;
    void unload() override;

    // Between `load` and `unload`.
    bool work_is_running() const { return running_; }

    // The user cannot close it: the work goes on.
    void reject() override {}

  private:
    void come_up_when_due();
    void come_up();
    void paint_now();

    std::unique_ptr<Ui::SaveProgress> ui_;
    std::optional<Date> wanted_since_;
    bool running_ = false;
};

}  // namespace tavernook
