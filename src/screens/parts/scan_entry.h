// The box into which a scanner types its codes, one after the other. The end of a code is Enter or,
// behind some text, Tab. What the project's scanner types is decoded; without a scanner Enter asks
// for the code, and a scanner that is read elsewhere makes Enter do nothing.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <string>

namespace tavernook {

class ScanEntry : public QLineEdit {
    Q_OBJECT

  public:
    explicit ScanEntry(QWidget* parent = nullptr);

    // The hold box: the code is its text and this one's. Both are empty after a code.
    void set_collector(QLineEdit& collector) { collector_ = &collector; }

    // For a screen whose other parts get the first key of a code: a full stop goes to the hold box,
    // a digit of a scanner that types into here, and the focus comes here. False for other keys.
    bool take_first_key(const QKeyEvent& key);

    // Takes a text as if it had been scanned.
    void take_line(const QString& line);

    // Whether codes are typed into the box, by the project's setting.
    static bool is_typed_into();

    // The hint in the empty box follows the setting.
    void follow_scanner_type();

    // Gives up what has come so far.
    void discard();

  Q_SIGNALS:
    void scanned(const std::string& code);  // not empty
    void unreadable();                      // a line that holds no code

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void finish();
    void ask();

    QPointer<QLineEdit> collector_;
};

}  // namespace tavernook
