// The project's settings, modal over the main window, or for a lesson as one of its child windows.
// Most are written with OK; the check marks and the scanner are written at once and stay on Cancel.
//
// As a child window it goes with its project, as by Cancel: nothing of it reaches the next one.
#pragma once

#include <QDialog>
#include <memory>

#include "core/project_settings.h"
#include "screens/parts/guard.h"

class QCheckBox;
class QComboBox;

namespace tavernook {

namespace Ui {
class ProjectSetup;
}

class ProjectSetup : public QDialog {
    Q_OBJECT

  public:
    explicit ProjectSetup(QWidget* parent = nullptr);
    ~ProjectSetup() override;

    QSize sizeHint() const override;  // all of it in sight

    void accept() override;
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void take_room();
    void keep_lists_from_wheel();
    void fill_lists();
    void show_settings();
    void show_audit_time_lists();
    void show_scanner();
    void connect_settings();
    void write_at_once(QCheckBox* box, i16& setting, i16 when_checked);
    void update_port();
    SetupTexts typed_setup() const;

    Steps steps_;
    std::unique_ptr<Ui::ProjectSetup> ui_;
    bool font_was_tried_ = false;
    const i16 font_before_;  // 0 becomes the first size of the list
};

}  // namespace tavernook
