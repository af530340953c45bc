// The label of one item as a page: "barcode/labeldat.dat" filled into "barcode/labeldat.htm" under
// the program's folder.
//
//   %1%          name
//   %2%          quantity and unit, "6.00 Bag(s)"
//   %3%          "4.00 servings per 1 Bag(s)"
//   %4%          serving size and its unit
//   %5% to %13%  fat, calories, cholesterol, sodium, potassium, carbohydrate, fiber, sugars and
//                protein with their units
//   %14%         cost of one quantity unit, with the currency sign
//   %15%         the code between "*", for the font "3 of 9 Barcode"
//   %16%         "(Barcode: 012345)"
//
// An item without a code has nothing in the last two.
#pragma once

#include "basics/values.h"

namespace tavernook {

// False when there is no such item, and, after a box, when there is no template or the page cannot
// be written; an older page is as it was then.
[[nodiscard]] bool Build_Item_Label(i16 item) noexcept;

}  // namespace tavernook
