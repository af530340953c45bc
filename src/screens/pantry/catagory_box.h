// The category of an item, to choose from all there are, by name.
#pragma once

#include <QComboBox>

#include "basics/values.h"

namespace tavernook {

class CatagoryBox : public QComboBox {
  public:
    using QComboBox::QComboBox;

    // Reads anew which ones there are. What is chosen stays chosen.
    void fill();

    // An item of a category that is not there stands under the first one.
    void choose(i16 catagory);

    i16 chosen() const;  // 0: none

    // The stored number as long as it is chosen where the item stands, in whatever category that
    // is not there any more.
    i16 chosen_for(i16 stored) const;
};

// A new category of items, under the name that is asked for. Its row; 0 when there is no name.
i16 ask_new_catagory();

}  // namespace tavernook
