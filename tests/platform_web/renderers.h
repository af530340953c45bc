// The processes of the engine that draw pages.
#pragma once

namespace tavernook {

// Kills those of this program. False when there was none.
bool end_renderers();

}  // namespace tavernook
