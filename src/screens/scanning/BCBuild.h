// The sheet of barcode labels: made from what is ticked, shown, and printed. On load the last sheet
// of the project comes up. A sheet on show stays as it was made, whatever becomes of items, recipes
// and the project's name; the next one is made of what is there by then.
//
// What keeps scanners from reading the labels stands in a line above the page as long as they are
// on show: the font that draws the codes may be missing on this computer, and codes may hold what
// such a barcode cannot (counted when the sheet is made here).
//
// A print takes its time, and nothing else begins meanwhile; whatever closes the screen ends it
// first and tells so.
#pragma once

#include <memory>

#include "barcodes/barcode_sheet.h"
#include "screens/parts/running_work.h"
#include "screens/parts/screen.h"

namespace tavernook {

class PagePane;
class PrintPane;

namespace Ui {
class BCBuild;
}

class BCBuild : public Screen, public RunningWork {
    Q_OBJECT

  public:
    explicit BCBuild(QWidget* parent = nullptr);
    ~BCBuild() override;

    bool would_be_lost() const override;
    void end_work() override;

  protected:
    void update_commands() override;
    void focusInEvent(QFocusEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void connect_commands();
    void connect_page();
    void show_last_sheet();
    void build();
    void show_sheet(const SheetLabels& labels);
    void show_notice();
    void end(const QString& words);
    void escape();

    std::unique_ptr<Ui::BCBuild> ui_;
    PagePane& page_;
    PrintPane& printing_;
    SheetLabels labels_;  // of the sheet on show; none is counted of one that was there before
};

}  // namespace tavernook
