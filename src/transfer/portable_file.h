// The plain file inside recipe files and inventory files: "temppf.tmp" in the program's folder. It
// is written and read by position there, and travels in a cabinet as its only entry. Whoever works
// with it holds a `PortableFileRemoval` as long as that; what a killed program has left is written
// over by the next.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tavernook {

inline constexpr i64 longest_portable_file = 256 * 1024 * 1024;  // bytes

// -1 when all of the file that was unpacked last has come out, 0 while it is at work or has failed.
extern i16 extract_done;

// Deletes the plain file, if there is one, at its beginning and at its end.
class PortableFileRemoval {
  public:
    // Throws what the file layer throws.
    PortableFileRemoval();
    ~PortableFileRemoval();
    PortableFileRemoval(const PortableFileRemoval&) = delete;
    PortableFileRemoval& operator=(const PortableFileRemoval&) = delete;
};

// Has `write` fill the plain file, which is empty, and packs it into `target`, which the user can
// cancel. An older target stays until the new one is whole. The plain file is deleted in any case.
// Throws what `write` and the files throw, Fault 6 for more than can be unpacked again, and Fault
// 32755 when the user cancels; there is no new target then.
void pack_portable(const std::string& target, const std::function<void(File&)>& write);

// Unpacks `source`; the windows live meanwhile, and the user can cancel. The plain file, whole and
// open. Throws what the extraction of a cabinet throws (platform/cabinets.h), and Fault 32755 when
// the user cancels. None when the wait took too long, told by a box of that message, which the
// clock of the present rule never lets happen: it counts within a minute.
std::unique_ptr<File> unpack_portable(const std::string& source, std::string_view watchdog_message);

}  // namespace tavernook
