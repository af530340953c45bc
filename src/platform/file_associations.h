// What the desktop does with the program's files: type names, icons, and opening on a double
// click. Each system answers in its own way.
#pragma once

namespace tavernook {

class FileAssociations {
  public:
    virtual ~FileAssociations() = default;

    // For the present user, without administrator's rights; a second call changes nothing.
    virtual void write() = 0;
};

}  // namespace tavernook
