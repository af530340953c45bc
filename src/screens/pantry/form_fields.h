// The boxes of a form, each of which shows one thing of a record.
//
// A box counts as touched while its text differs from the one that was last shown in it; typing the
// old text again is no change. So a form with edits can take over what others have changed: the
// touched boxes keep what the user typed, all others show the record as it is now. What is accepted
// then is what the user typed and nothing else; a unit that was replaced while the form stood open
// does not come back with it.
//
// A box that shows already what it should is left alone, so that the user who has just selected its
// text still has it selected when something else changes.
//
// What can go wrong: a record of a damaged file holds what cannot be told, a date beyond all years.
// Each box reads first and changes then, so that a Fault leaves it as it was; `show` may have
// filled the boxes in front of it by then, and its caller empties the form.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "basics/values.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace tavernook {

class QuantityBox;

class FormFields {
  public:
    FormFields() = default;
    FormFields(const FormFields&) = delete;
    FormFields& operator=(const FormFields&) = delete;

    struct Field {
        std::function<void(i16 record)> show;  // record 0: empty, without a Fault
        std::function<QString()> text;
    };
    void add(Field field);

    // The usual ones; `read` is asked for live records only.
    void add_number(QuantityBox& box, const char* mask, std::function<f64(i16 record)> read);
    void add_line(QLineEdit& box, std::function<QString(i16 record)> read);
    void add_lines(QPlainTextEdit& box, std::function<QString(i16 record)> read);
    void add_name(QComboBox& box, std::function<QString(i16 record)> read);

    // All boxes; none is touched then.
    void show(i16 record);

    // The boxes that the user has not touched.
    void follow(i16 record);

    bool is_edited() const;

  private:
    struct Kept {
        Field field;
        QString shown;
        bool is_touched() const { return field.text() != shown; }
        void show(i16 record);
    };
    std::vector<Kept> fields_;
    bool is_anew_ = false;  // another record: what could be undone in the boxes goes
};

}  // namespace tavernook
