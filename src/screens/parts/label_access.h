// What assistive technology hears of a label. Qt gives a label's accessible name in the place of
// its text, so that a figure with a name is never heard. Here the name is the caption and the text
// follows: "Sales tax: 1.20".
//
// The caption is the label's accessible name, or the text of a label beside it, whose object name
// stands in the property "caption".
#pragma once

namespace tavernook {

// For every label of the program that is made from now on. Once is enough.
void install_label_access();

}  // namespace tavernook
