// The barcode of one item or recipe (barcodes/barcode_on_show.h), as it was drawn and saved: the
// bars, the code beneath, and the file.
//
// It follows what it is of: another name, and another code, which is drawn and saved anew. Where
// the item or its code has gone no bars are shown, and a sentence says so.
#pragma once

#include <memory>

#include "barcodes/barcode_on_show.h"
#include "screens/parts/screen.h"

namespace tavernook {

namespace Ui {
class BCGEN;
}

class BCGEN : public Screen {
    Q_OBJECT

  public:
    explicit BCGEN(QWidget* parent = nullptr);
    ~BCGEN() override;

  protected:
    void follow_changes() override;

  private:
    void show_code(const std::string& code);
    void save_later();

    std::unique_ptr<Ui::BCGEN> ui_;
    Seen seen_{Subject::items, Subject::recipes};
    BarcodeOnShow shown_;
};

}  // namespace tavernook
