// Every child screen there is, so that the end of a step reaches those in sight.
#pragma once

namespace tavernook {

class Screen;

void add_screen(Screen& screen);
void remove_screen(Screen& screen);

// Each that is visible follows what has changed; those that are hidden do so when they are shown.
void follow_in_sight() noexcept;

}  // namespace tavernook
