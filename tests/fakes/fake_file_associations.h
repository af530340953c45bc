// Counts how often the file associations were written.
#pragma once

#include "platform/file_associations.h"

namespace tavernook {

class FakeFileAssociations : public FileAssociations {
  public:
    void write() override { ++writes; }

    int writes = 0;
};

}  // namespace tavernook
