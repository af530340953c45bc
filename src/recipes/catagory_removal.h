// Deleting a category. Its recipes go with it, which is why this stands above the recipes.
#pragma once

#include "basics/values.h"

namespace tavernook {

// -1 deleted; 0 refused, with a box that says why, or kept by the user. The name and the rows
// beneath stay. The live recipes of a category of any type but 0 go with it, after a question;
// their documents stay. When the category or its recipes are others behind the question, the status
// bar says so and all stays. Nothing has changed after 0. A row outside the table is refused with a
// box.
i16 delete_catagory(i16 slot) noexcept;

}  // namespace tavernook
