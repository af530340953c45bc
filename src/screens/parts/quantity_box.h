// A box for one number. It takes "1.5" and "1,5", with or without a unit behind it, and marks what
// it cannot read. Its text is selected on entry. A number that the user did not touch stays what it
// was, however it is rounded on show.
#pragma once

#include <QLineEdit>
#include <string>

#include "basics/values.h"

class QAction;

namespace tavernook {

class QuantityBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit QuantityBox(QWidget* parent = nullptr);

    // Shows the number under the mask and takes it as untouched.
    void set_value(f64 value, const char* mask);

    // The same as plain number text.
    void set_number(f64 value);

    // Empty, which counts as 0.
    void set_blank();

    bool touched() const { return text() != shown_; }

    // The number that counts: the exact one while untouched, else what was typed.
    f64 value() const;

    // The same as a text for routines that take typed ones.
    std::string value_text() const;

    bool readable() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    void show_untouched(f64 value, const std::string& text);
    void mark();
    QSize size_for(int letters) const;

    f64 value_ = 0;
    QString shown_;
    QString purpose_;  // the tooltip while all is well
    QAction* warning_;
};

}  // namespace tavernook
