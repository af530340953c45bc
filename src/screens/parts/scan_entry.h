// A scan, from key to code.
//
// A scanner that is a keyboard types the digits of a code into whatever has the focus, and Enter or
// Tab behind them. Where the box has the focus all of that is plain typing, and the end hands over
// the line. Anywhere else on the screen the first key has to be noticed: `watch` looks at the keys
// of every part, brings the focus here with the first digit, letter or full stop, and from then on
// the rest is plain typing again. What an abandoned code has left in the box goes then.
//
// Some parts want such keys themselves. A list finds rows by letters, so it keeps them, and they
// are remembered besides: nobody knows yet whether a code has begun. When its digits follow, the
// letters of a recipe's code ("tvk") come along at once; others count at the end, where together
// with the digits they name an item. Letters that name an item all by themselves are a code when it
// ends in the list. A box of years keeps digits; the fifth one, or a letter, tells a code, and what
// the year was is put back. A box of text keeps everything.
//
// The Cue Cat begins its line with a full stop, which goes to the hold box from everywhere; the
// line is the hold box's text and this one's. Without a scanner Enter asks for the code, with what
// was typed as the answer proposed; a scanner that is read on the scan list makes Enter do nothing.
//
// What can go wrong: a line that holds no code is told here, in the message panel, and nobody else
// hears of it, unless its owner wants to. What was begun and never ended must not spoil a later
// code. Letters of a list are forgotten with the next key that writes nothing, and with the next
// change of the focus. What stands in the box and in the hold box goes with Escape, when the focus
// goes to another part, when the mouse presses one, and with `abandon`; but for the full stop it
// stays where no scanner types, as a person typed it then. A full stop that came by mistake is left
// out where the code without it names something. The screen may go while the question stands open;
// then nothing is told.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <optional>
#include <string>
#include <vector>

namespace tavernook {

class ScanEntry : public QLineEdit {
    Q_OBJECT

  public:
    // Parts of a screen that want keys which might begin a code.
    struct Keeps {
        std::vector<QWidget*> keeps_letters;
        std::vector<QWidget*> keeps_digits;  // boxes for a number of up to four digits
    };

    explicit ScanEntry(QWidget* parent = nullptr);

    // The hold box. Both boxes are empty after a code.
    void set_collector(QLineEdit& collector) { collector_ = &collector; }

    // From now on a code may begin in any part of the screen that takes the focus. Call it once,
    // when all of them are there; toolbars have to be filled.
    void watch(QWidget& screen, const Keeps& keeps);

    // For a box that is there for one code at a time and hidden in between: it comes up with the
    // focus, and goes with the code, by Escape, or when the focus goes elsewhere; otherwise the
    // focus goes back. Enter in the empty box, and an empty answer, are told as an empty code.
    // Where there is no scanner the code is asked for at once and the box stays hidden.
    void take_one(QWidget& back_to);
    bool is_taking_one() const { return taking_one_; }

    // Takes a text as if it had been scanned.
    void take_line(const QString& line);

    // Asks for a code, with what was typed proposed: Enter, where there is no scanner.
    void ask();

    // Whether codes are typed into the box, by the project's setting.
    static bool is_typed_into();

    // A line that holds no code is handed over as an empty code, and not told here.
    void hand_over_unread_lines() { hands_over_unread_ = true; }

    // The hint where the project's scanner types nothing.
    void set_batch_hint(const QString& hint);

    // The hint in the empty box follows the setting; it does so by itself whenever the box comes in
    // sight or gets the focus.
    void follow_scanner_type();

    // Gives up what has come so far.
    void discard();

    // The same where a scanner types here: another command has begun, and no code comes any more.
    void abandon();

    // Something has come, here or in the hold box.
    bool has_begun() const;

  Q_SIGNALS:
    void scanned(const std::string& code);  // empty from `take_one` and where unread lines come too
    void ended();                           // of `take_one`: the box has gone, with or without code

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    bool take_key_of(QWidget& part, const QKeyEvent& key);
    bool take_letters_of(const QWidget& part, const QKeyEvent& key);
    bool take_digit_of(QWidget& part, QChar digit);
    void begin(const QString& first);
    QString held() const;
    QString line_so_far() const;
    void finish();
    void end_one();

    Keeps keeps_;
    QPointer<QLineEdit> collector_;
    QString kept_;         // what came elsewhere and may be the beginning of a code
    QString letters_;      // of a list, in front of what has come here
    QString text_before_;  // of the part that keeps digits, before the first of them
    QPointer<QWidget> back_to_;
    bool taking_one_ = false;
    bool hands_over_unread_ = false;
    QString batch_hint_ = tr("This scanner is read on the scan list");
};

}  // namespace tavernook
