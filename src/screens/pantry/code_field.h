// The barcode of an item, and the way to another one. "Scan" brings up a box for one code: Enter in
// the empty box takes the code away, a line that holds no code leaves what was there, and so do
// Escape and going elsewhere. Without a scanner the code is asked for. The batch scanner is read on
// the scan list, which hands one of its codes back.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "screens/parts/guard.h"

namespace tavernook {

namespace Ui {
class CodeField;
}

class CodeField : public QWidget {
    Q_OBJECT

  public:
    explicit CodeField(QWidget* parent = nullptr);
    ~CodeField() override;

    // Blank counts as none, which reads "empty".
    void show_code(const std::string& code);

    // The item is another one now; a code that comes all the same is not for it.
    void give_up_scanning();
    const std::string& code() const { return code_; }

    // The code that "Scan" was pressed for; false when none is waited for any more.
    [[nodiscard]] bool take(const std::string& code);

    std::vector<QWidget*> boxes_in_order() const;

  Q_SIGNALS:
    void command(const tavernook::Work& work);  // for the screen to run

  private:
    void scan();
    void show_text();

    std::unique_ptr<Ui::CodeField> ui_;
    std::string code_;
    bool is_scanning_ = false;
};

}  // namespace tavernook
