// Codes on the scan list belong to the project whose items they are.
#pragma once

namespace tavernook {

// Before the project goes: asks where codes stand on the list. False when the user wants to stay.
[[nodiscard]] bool may_lose_scanned_codes();

}  // namespace tavernook
