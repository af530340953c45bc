// The text of a box that is longer than a label can show: it scrolls, and the buttons stay in
// sight.
#pragma once

#include <QPlainTextEdit>

namespace tavernook {

// Bears the object name "long_text". It can be selected and copied, and the Page keys scroll it as
// long as the focus is anywhere in its box.
class LongText : public QPlainTextEdit {
  public:
    // A label with this text would not leave the box enough room on its screen.
    static bool is_needed(const QString& text, const QWidget& box);

    LongText(const QString& text, QWidget& box);

    QSize sizeHint() const override { return minimumSize(); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tavernook
