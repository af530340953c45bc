// The outside of the fakes with files on the real disk, without the records that the fakes keep.
#pragma once

#include "fakes/test_platform.h"

namespace tavernook {

inline void put_on_real_disk(TestPlatform& platform) {
    set_platform({.clock = &platform.clock,
                  .boxes = &platform.boxes,
                  .files = &platform.disk,
                  .system_info = &platform.system,
                  .save_progress = &platform.progress,
                  .main = &platform.main,
                  .screens = &platform.screens});
}

}  // namespace tavernook
