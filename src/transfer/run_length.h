// The run-length coding of back-up files (docs/formats/backup_file.md). A file is coded in blocks
// of 32,000 bytes: each run of seven equal bytes or more becomes an entry of a table at the end,
// and all other bytes, in their order, stand in front of it.
//
// The coding is that of back-ups since the first, and it does not keep every file. The end of a
// block counts as a blank:
//
//   a block that ends in a blank   its run stays open, the end counted as one blank more. That
//                                  stands for the next block's first byte: well if it is a blank,
//                                  too, and else that byte is restored as a blank. At the end of
//                                  the file the run is never written.
//   a length of whole blocks       the last of them is taken as empty.
//   bytes behind the last run      are written and not restored.
//
// And some files cannot be coded at all: `encode_runs` tells them. So whoever codes a file decodes
// it again and compares. Both go through their files once, from front to end, in blocks; memory
// holds the table beside, 400 KB at the most.
#pragma once

#include <functional>
#include <string_view>

#include "platform/files.h"

namespace tavernook {

// Takes the result, piece by piece.
using Outlet = std::function<void(std::string_view)>;

// Hears how far the work is, from 0 to 99.
using Progress = std::function<void(int)>;

// Fault 6 for a file that cannot be coded: of more than 255 blocks, with more than 65,535 runs, or
// with a run longer than that. Fault 63 when the file ends before its length.
void encode_runs(File& source, const Outlet& outlet, const Progress& progress);

// Fault 63 for bytes that no coder has written: runs that are no runs or not in their order, or
// more bytes between them than there are. What comes out is never longer than 256 blocks and a run.
void decode_runs(File& backup, const Outlet& outlet, const Progress& progress);

}  // namespace tavernook
