// Cabinets as libgcab writes and libmspack reads them: one entry in MSZIP, which every program that
// knows cabinets unpacks. Packing runs in the caller's thread and holds the source in memory.
// Unpacking runs in a thread of its own, to which its files belong; what a damaged cabinet makes of
// its memory is zeros, never what lay there before.
#pragma once

#include "platform/cabinets.h"

namespace tavernook {

class CabinetFiles : public Cabinets {
  public:
    void compress(File& source, std::string_view entry, File& cabinet,
                  const CabinetProgress& progress) override;

    // What another program has packed is read, too, in any of the ways to pack. Parts of an entry
    // that lie in a further cabinet are damage.
    std::unique_ptr<Extraction> extract(std::unique_ptr<File> cabinet, std::string_view entry,
                                        std::unique_ptr<File> target, i64 longest) override;
};

}  // namespace tavernook
