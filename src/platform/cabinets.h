// Cabinets: the compressed files that carry one plain file of the program to another place. Names
// in a cabinet are never paths of the disk: what is packed and what comes out are open files.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/files.h"

namespace tavernook {

// Hears how far the work is, from 0 to 100, and may throw to end it.
using CabinetProgress = std::function<void(int)>;

// An unpacking in the background. It ends by itself; letting go of one that is still at work stops
// it first, which takes a moment. Both files are closed then, but for a target that was handed out.
class Extraction {
  public:
    virtual ~Extraction() = default;

    // 0..100, and 100 only when all of it has come out.
    virtual int percent() noexcept = 0;

    // Also when it has failed.
    virtual bool has_ended() noexcept = 0;

    // Behind its end, once: the target, whole. Throws what stopped it: 53 when the cabinet has no
    // such entry, 63 for what is no cabinet or a damaged one, 7 for an entry that is longer, or
    // lies further inside its cabinet, than was allowed, and what the files throw.
    virtual std::unique_ptr<File> finish() = 0;
};

class Cabinets {
  public:
    virtual ~Cabinets() = default;

    // Packs all of `source` as the only file, `entry`, into `cabinet`, which is empty. No folder is
    // stored. Throws what the files and `progress` throw; `cabinet` is none then.
    virtual void compress(File& source, std::string_view entry, File& cabinet,
                          const CabinetProgress& progress) = 0;

    // Begins to unpack `entry`, capitals apart, into `target`, which is empty. Every other entry is
    // passed over. Stops before more than `longest` bytes have come, passed over or not.
    virtual std::unique_ptr<Extraction> extract(std::unique_ptr<File> cabinet,
                                                std::string_view entry,
                                                std::unique_ptr<File> target, i64 longest) = 0;
};

}  // namespace tavernook
