// A box whose text is selected when one comes into it, so that typing replaces it: by Tab and the
// like at once, by a click when the button comes up again. Only by the click that brings the focus,
// and not where that click has drawn a selection of its own; the next click places the caret.
// Coming back from a menu, a list or another window leaves the selection as it was.
#pragma once

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace tavernook {

void select_on_entry(QLineEdit& box);
void select_on_entry(QComboBox& box);  // one to type into
void select_on_entry(QPlainTextEdit& box);

}  // namespace tavernook
