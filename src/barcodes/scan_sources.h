// What fills the scan list beside a scanner that types: the batch scanner and files.
#pragma once

#include <string>

#include "basics/values.h"

namespace tavernook {

// Reads the batch scanner at the project's port; its codes stay in it, so that reading twice gives
// every row twice. Boxes tell of a port that is not ready and of a scanner that does not answer,
// which an empty one counts as; none for a reading that was stopped. Returns the number of rows
// that came in. A packet that is none ends it with the box of the list's commands; the rows before
// it stay.
int read_cs1504() noexcept;

// Empties the list, and then the scanner. Kept: there is no question, and nobody looks whether the
// scanner has heard it.
void clear_scanner() noexcept;

struct ScanImport {
    bool has_begun = false;   // a file was chosen and could be opened
    int rows = 0;             // that came in
    int stopped_at_line = 0;  // the line, from 1, that ended it; 0 at the end of the file
};

// Asks for a file of lines "barcode,quantity,lot" and takes them until one is none. No box.
ScanImport Import_File() noexcept;

}  // namespace tavernook
