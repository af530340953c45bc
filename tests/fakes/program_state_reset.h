// The global tables, settings and flags as a fresh program has them.
#pragma once

namespace tavernook {

// The tables of a new project (see reset_project_tables), with blank entries 0, and every setting,
// flag and path at its start value.
void reset_program_state();

}  // namespace tavernook
