// Which item the form holds: a stored one, a new one that has no slot yet, or none; and how it gets
// from one to the next.
//
// A stored item is held as a RowRef. Its form is filled first and the item counts as on show then,
// so that an item which cannot be told leaves nothing half shown. While it is on show it is
// followed: what others change comes into the boxes that the user has not touched. An item that is
// deleted elsewhere leaves an empty form, with its edits, since there is nothing left to keep them
// in; an item that takes its slot is another one.
//
// Before the form shows something else, and before the screen or the project goes, edits are asked
// about (`settle`): kept, dropped, or stayed with. Behind the box the item is taken anew.
//
// What can go wrong: storing faults. The edits stay on show then, and nothing has been stored. All
// methods let Faults out; the screen's commands are where they end.
#pragma once

#include <string>

#include "core/changes.h"

namespace tavernook {

class ItemFormPane;

class ItemOnShow {
  public:
    explicit ItemOnShow(ItemFormPane& form) : form_(form) {}

    i16 number() const { return item_.now(); }  // 0 for a new item, and for one that has gone
    bool is_new() const { return is_new_; }
    bool is_any() const { return is_new_ || number() != 0; }
    bool is(const RowRef& item) const { return !is_new_ && item.now() != 0 && item == item_; }

    void show(i16 item);  // none where it is not live
    void show_new(const std::string& name, i16 catagory);
    void show_nothing();

    // Takes over what has changed; false when the item has gone, and the form is empty.
    bool follow_changes();

    bool has_edits() const;

    // False when the user wants to stay with the edits.
    [[nodiscard]] bool settle();

    // What stands in the form becomes the item's record, or a new one's, and is on show again. The
    // boxes that nobody touched count as they are stored now. The list to buy and the scan list are
    // told. False when it could not be stored; true, too, for an item that has gone.
    bool store(bool as_new);

  private:
    ItemFormPane& form_;
    RowRef item_;
    bool is_new_ = false;
};

}  // namespace tavernook
