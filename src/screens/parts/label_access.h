// What assistive technology hears of a label. Qt gives a label's accessible name in the place of
// its text, so that a figure with a name is never heard. Here the name is the caption and the text
// follows: "Sales tax: 1.20".
//
// The caption is the label's accessible name, or the text of a label beside it, whose object name
// stands in the property "caption".
//
// Of a box to choose from, Qt gives the present choice in the place of its name, and what it is for
// as the label that belongs to it. A box with an accessible name alone gets such a label here, out
// of sight; the line that is typed into bears the name, too.
#pragma once

class QLabel;

namespace tavernook {

// For every label and box of the program that is made from now on. Once is enough.
void install_label_access();

// Whoever listens hears at once what the label says, wherever the focus is. A label for that bears
// the property "announces": screen readers read out what such a one shows.
void announce(QLabel& label);

}  // namespace tavernook
