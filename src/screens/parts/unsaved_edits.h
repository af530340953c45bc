// A screen with fields that the user may have changed without accepting them.
#pragma once

namespace tavernook {

class UnsavedEdits {
  public:
    virtual ~UnsavedEdits() = default;

    // Asks where there are such edits. False when the user wants to stay with them, or when they
    // could not be stored.
    [[nodiscard]] virtual bool settle_edits() = 0;
};

}  // namespace tavernook
